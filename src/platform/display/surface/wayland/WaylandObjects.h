#pragma once

class QScreen;
class QWindow;
struct wl_display;
struct wl_output;
struct wl_surface;

namespace kestro {

// What the compositor knows of Qt's own objects. Qt owns them. Main thread. Tested by test_wayland.

/// The connection of the running application; null where the desktop is not Wayland.
[[nodiscard]] wl_display* waylandDisplay();

/// The surface of a window that was created; null where it has none.
[[nodiscard]] wl_surface* waylandSurface(QWindow& window);

/// The output that a monitor is; null for what stands in for a monitor while there is none.
[[nodiscard]] wl_output* waylandOutput(QScreen& monitor);

} // namespace kestro
