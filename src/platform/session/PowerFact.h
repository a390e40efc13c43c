#pragma once

#include "platform/session/KeptFact.h"
#include "platform/session/PowerRule.h"
#include "platform/session/PowerWatch.h"

namespace kestro {

/// That the person's rule for batteries wants no saver, and that the lid is closed. Main thread.
class PowerFact final : public KeptFact {
public:
    PowerFact(const QDBusConnection& systemBus, const PowerRule& rule);

    void ask(std::function<void()> onAnswer) override;
    /// The person chose otherwise.
    void setRule(const PowerRule& rule);
    /// What feeds the machine, as this knows it.
    [[nodiscard]] const PowerState& state() const { return m_watch.state(); }

private:
    void update();

    PowerWatch m_watch;
    PowerRule m_rule;
};

} // namespace kestro
