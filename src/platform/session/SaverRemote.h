#pragma once

#include "platform/session/BusObject.h"
#include "platform/session/MovieNow.h"

#include <functional>
#include <optional>

namespace kestro {

/// The saver that runs in this session, as another process sees it. Nothing here waits. Main thread.
/// Tested by SaverOnBusTest.
class SaverRemote final {
public:
    explicit SaverRemote(const QDBusConnection& bus);
    /// The one on the bus that this process finds.
    [[nodiscard]] static SaverRemote ofSession() { return SaverRemote(QDBusConnection::sessionBus()); }

    /// Asks what it shows; answered once, within a second, by nothing where none runs or none answers.
    void now(std::function<void(const std::optional<MovieNow>&)> handler);
    /// Has it go on to the next movie, or back to the previous one, or end, by the method's name; `handler`
    /// is told whether there is one that was told so.
    void tell(const QString& method, std::function<void(bool isThere)> handler);

private:
    BusObject m_service;
};

} // namespace kestro
