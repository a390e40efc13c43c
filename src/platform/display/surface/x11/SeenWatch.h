#pragma once

#include "platform/display/surface/x11/DisplayPower.h"
#include "platform/display/surface/x11/VisibilityWatch.h"

#include <cstdint>
#include <functional>

namespace kestro {

/// Tells whether somebody may see an X11 window: it is in sight, and the displays are not switched off. Owned
/// by the window's surface. Main thread. Tested by test_asleep.
class SeenWatch final {
public:
    /// `container` as VisibilityWatch says. `onSeen` is called when it is another; it must not destroy this.
    SeenWatch(std::uint32_t window, std::uint32_t container, std::function<void(bool isSeen)> onSeen);

    /// Whether it matters. While it does not, or the window is out of sight, the server is asked nothing.
    void setWatching(bool isWatching);

private:
    void settle();

    std::function<void(bool)> m_onSeen;
    bool m_isWatching = false;
    bool m_isInSight = true;
    VisibilityWatch m_visibility;
    DisplayPower m_power;
};

} // namespace kestro
