#pragma once

#include "platform/session/BusObject.h"

#include <memory>
#include <vector>

namespace kestro {

/// Where the session that this process belongs to stands at logind: that of XDG_SESSION_ID, else the one it
/// was started in, else, for what a user's manager started, the one that the user sees. Main thread.
/// Tested by LockFactTest.
class LogindSession final {
public:
    explicit LogindSession(const QDBusConnection& systemBus);

    /// `onAnswer` is called once, at the latest after `patience`, with the object, which lives as long as
    /// this; null where there is none.
    void find(std::function<void(BusObject* session)> onAnswer);
    /// Has it locked; a line in the log where that cannot be.
    void lock();

private:
    using Answer = std::function<void(BusObject* session)>;

    void tryNext(int way, QDeadlineTimer until, const Answer& onAnswer);
    void found(const QString& path, const Answer& onAnswer);

    BusObject m_manager;
    BusObject m_self; ///< the user
    std::unique_ptr<BusObject> m_session;
};

} // namespace kestro
