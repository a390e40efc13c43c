#pragma once

#include <cstdint>
#include <optional>

struct xcb_connection_t;
struct xcb_screen_t;

namespace kestro {

/// The visual of windows that programs draw in with OpenGL, double buffered and with a depth buffer: the root
/// window's where that is such a one, else the server's best. Asks the server, and loads no driver. Nothing
/// where it has none, or no OpenGL. `screenNumber` is the screen's in the server's list. Main thread.
/// Tested by test_hacks.
[[nodiscard]] std::optional<std::uint32_t> openGLVisual(xcb_connection_t* connection,
                                                        const xcb_screen_t& screen, int screenNumber);

} // namespace kestro
