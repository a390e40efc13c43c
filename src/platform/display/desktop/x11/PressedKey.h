#pragma once

#include "platform/display/surface/Surface.h"

#include <cstdint>

struct xcb_connection_t;

namespace kestro {

/// Which key of an X11 display the one of that number is, by the layout in use and what is held with it now.
/// Two round trips to the X server. Main thread. Tested by test_keys.
[[nodiscard]] InputEvent::Key pressedKey(xcb_connection_t* connection, std::uint32_t code);

} // namespace kestro
