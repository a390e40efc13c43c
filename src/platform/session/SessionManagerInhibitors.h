#pragma once

#include "platform/session/AskedFact.h"
#include "platform/session/BusObject.h"

#include <memory>

namespace kestro {

/// What programs asked org.gnome.SessionManager for, which GNOME, Cinnamon and MATE have: that the session is
/// not taken for idle. Main thread. Tested by InhibitorFactsTest.
class SessionManagerInhibitors final : public AskedFact {
public:
    explicit SessionManagerInhibitors(const QDBusConnection& sessionBus);

private:
    struct Round;

    void look(Found found) override;
    void askInhibitors(const std::shared_ptr<Round>& round);
    void askOne(const std::shared_ptr<Round>& round, const QString& path,
                const std::function<void()>& onAnswer);

    BusObject m_manager;
};

} // namespace kestro
