#pragma once

#include "platform/session/IdleRivals.h"
#include "platform/session/SessionFact.h"

#include <functional>

namespace kestro {

/// Looks for a program that starts savers by itself whenever the session is asked whether one may be shown.
/// It is no reason against it by itself: whoever is told of a rival leaves the session to it. Main thread.
/// Tested by test_idle.
class RivalFact final : public SessionFact {
public:
    /// `onSeen` is called from the event loop with the rival that runs, or with nothing.
    using SeenHandler = std::function<void(const std::optional<IdleRival>&)>;

    RivalFact(const QDBusConnection& sessionBus, const QByteArray& xDisplay, SeenHandler onSeen);

    void ask(std::function<void()> onAnswer) override;
    [[nodiscard]] QList<Hindrance> hindrances() const override { return {}; }

private:
    IdleRivals m_rivals;
    SeenHandler m_onSeen;
};

} // namespace kestro
