#pragma once

#include "platform/display/view/Geometry.h"

namespace kestro {

class View;

/// Where the view's bounds lie, in global coordinates; in its topmost superview's coordinates when in no
/// window. Tested by ViewTest.
[[nodiscard]] Rect globalRect(const View& view);

/// The part of it that the window and every superview leave to be seen; empty where none is.
[[nodiscard]] Rect visibleGlobalRect(const View& view);

} // namespace kestro
