#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace kestro {

// What surfaces under X11 have in common. Main thread. Tested by X11DesktopTest.

/// An answer of the X server; null where it could not give one.
template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, decltype(&std::free)>;

/// The connection of the running application; null where the desktop is not X11.
[[nodiscard]] xcb_connection_t* x11Connection();

/// The root window of the desktop; nothing where that is not X11.
[[nodiscard]] std::optional<std::uint32_t> rootWindow();

/// A window's place in its parent, its size, depth and root; null where there is no such window.
[[nodiscard]] ReplyPtr<xcb_get_geometry_reply_t> geometryOf(xcb_connection_t* connection,
                                                            std::uint32_t window);

/// The server itself makes that window black when it appears, before the first picture is there.
void makeBackgroundBlack(std::uint32_t window);

/// Has the server tell this process of `events` at that window as well, beside those that it is told of
/// already: Qt listens to the root too.
void listenTo(std::uint32_t window, std::uint32_t events);

} // namespace kestro
