#pragma once

#include "platform/session/BusObject.h"
#include "platform/session/KeptFact.h"

#include <memory>
#include <vector>

namespace kestro {

class LogindSession;

/// Whether the session is locked, or about to be: by what logind says of it, and by the lockers of the
/// desktops. That somebody has it locked (logind's Lock, Plasma's AboutToLock) holds until it is unlocked or
/// the person is back, because not every locker tells that it has done so. Main thread.
class LockFact final : public KeptFact {
public:
    LockFact(const QDBusConnection& sessionBus, const QDBusConnection& systemBus, LogindSession& session);

    void ask(std::function<void()> onAnswer) override;
    /// To be told: so whoever was asked to lock has done it by now, and says so, or never did.
    void personIsBack();

private:
    struct Locker {
        std::unique_ptr<BusObject> object;
        QString service;
        bool isActive = false;
    };

    void addLocker(const BusAddress& address);
    void askLocker(Locker& locker, const std::function<void()>& onAnswer);
    void listenToSession(BusObject& session);
    void askSession(const std::function<void()>& onAnswer);
    void askHint(BusObject& session, const std::function<void()>& onAnswer);
    void setHint(bool isLocked);
    void announce(bool isToBeLocked);
    void update();

    QDBusConnection m_bus;
    LogindSession& m_session;
    BusObject m_daemon;
    BusObject m_logind;
    BusObject m_plasma;
    std::vector<std::unique_ptr<Locker>> m_lockers;
    BusObject* m_heard = nullptr; ///< the session that is listened to
    bool m_hint = false;
    bool m_isAnnounced = false; ///< somebody has it locked, and has not said yet that it is
};

} // namespace kestro
