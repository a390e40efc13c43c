#pragma once

#include "platform/display/surface/Surface.h"

#include <cstdint>

namespace kestro {

/// Which key that is, by the X11 symbol that it has in the layout in use. Where that is a letter of another
/// script, by the place of the key: `code` is its number as X11 and libxkbcommon count. Without state; any
/// thread.
[[nodiscard]] InputEvent::Key keyOfSymbol(std::uint32_t symbol, std::uint32_t code);

} // namespace kestro
