#pragma once

#include <cstdint>
#include <xcb/xcb.h>

namespace kestro {

// The one shape of pixels that is understood here: 32 bits a pixel, blue first, no alpha. Main thread.
// Tested by X11DesktopTest.

/// The depth of windows with such pixels.
inline constexpr std::uint8_t plainDepth = 24;

/// Whether images of that depth lie in memory as such pixels.
[[nodiscard]] bool hasOurFormat(const xcb_setup_t* setup);

/// Whether the bytes of a pixel of that visual stand in that order.
[[nodiscard]] bool isBlueFirst(const xcb_setup_t* setup, xcb_visualid_t visual);

/// The depth of windows with that visual; 0 where the server has no such visual.
[[nodiscard]] std::uint8_t depthOf(const xcb_setup_t* setup, xcb_visualid_t visual);

} // namespace kestro
