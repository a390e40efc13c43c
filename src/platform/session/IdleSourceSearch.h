#pragma once

#include "platform/base/DetachedTask.h"
#include "platform/session/BusObject.h"
#include "platform/session/IdleSource.h"
#include "platform/session/SessionPlaces.h"

#include <functional>
#include <memory>

namespace kestro {

/// Looks for what tells in this session that the person is away, the best first: GNOME's or Cinnamon's idle
/// monitor; then a protocol of the Wayland compositor or, where there is none to be reached, the X server's
/// counter. Nothing that hangs holds it up for more than a second. Owned by who waits for it, who hears
/// nothing after destroying it. Main thread.
class IdleSourceSearch final {
public:
    /// Null where the session has none.
    using Found = std::function<void(std::unique_ptr<IdleSource>)>;

    /// Begins at once. `onFound` is called once, from the event loop; it may destroy the search.
    IdleSourceSearch(SessionPlaces places, Found onFound);

private:
    void lookForMonitor(const BusAddress& monitor, std::function<void()> otherwise);
    void lookAtWayland();
    void lookAtX();
    void finish(std::unique_ptr<IdleSource> source);

    SessionPlaces m_places;
    Found m_onFound;
    BusObject m_bus;
    std::unique_ptr<DetachedTask> m_task; ///< what may hang; null while nothing of that kind is under way
};

} // namespace kestro
