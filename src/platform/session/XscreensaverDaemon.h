#pragma once

#include "platform/session/XEvents.h"

#include <functional>
#include <memory>
#include <optional>

namespace kestro {

/// The daemon of xscreensaver that runs on an X server. It tells of itself by a property of a window that is
/// never shown; what it leaves at the root window stays behind when it ends. That window is watched, and
/// nothing else: the root window tells of much else, all day on some desktops. Owned by who stands aside.
/// Main thread. Tested by IdleRivalsTest.
class XscreensaverDaemon final {
public:
    /// A window that was found, on the connection that will tell of its end.
    struct Found {
        XConnection connection; ///< see there
        xcb_window_t window;
    };

    /// Looks for it; waits for the server for ever if need be. Any thread. Nothing where none runs.
    [[nodiscard]] static std::optional<Found> find(const QByteArray& display);

    /// `onEnd` is called once, from the event loop, when the daemon ends or its server does; it may destroy
    /// this.
    XscreensaverDaemon(Found found, std::function<void()> onEnd);

private:
    void end();

    std::function<void()> m_onEnd; ///< empty once called
    XEvents m_events;
};

} // namespace kestro
