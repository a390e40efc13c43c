#pragma once

#include "idle/IdleStatus.h"
#include "platform/base/Result.h"
#include "platform/session/BusObject.h"

#include <functional>
#include <optional>

namespace kestro {

/// The idle service that runs in this session, as another process sees it. Nothing here waits. Main thread.
/// Tested by IdleSwitchTest.
class IdleRemote final {
public:
    /// Nothing where no service runs, or none that answers.
    using StatusHandler = std::function<void(const std::optional<IdleStatus>&)>;

    explicit IdleRemote(const QDBusConnection& bus);

    /// Asks for its status; answered once, within a second.
    void status(StatusHandler handler);
    /// Calls `handler` with each new status, and with nothing when the service goes.
    void watch(StatusHandler handler);

    /// Has it show the saver; `handler` is told, within a second, whether it was there to hear that.
    void show(std::function<void(bool isHeard)> handler) { tell(QStringLiteral("Show"), std::move(handler)); }
    /// Has it read its options again.
    void reload(std::function<void(bool isHeard)> handler)
    {
        tell(QStringLiteral("Reload"), std::move(handler));
    }
    /// Ends it.
    void quit(std::function<void(bool isHeard)> handler) { tell(QStringLiteral("Quit"), std::move(handler)); }

private:
    void tell(const QString& method, std::function<void(bool)> handler);

    BusObject m_service;
};

} // namespace kestro
