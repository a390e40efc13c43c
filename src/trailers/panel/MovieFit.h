#pragma once

#include "platform/display/view/Geometry.h"

namespace kestro {

/// Points that the controller bar below a previewed movie takes.
inline constexpr float controllerBarHeight = 16;

/// Where a movie of that natural size stands, with its controller bar, in a container: as large as fits in
/// its proportions, in the middle. A width of zero counts as the container's. An empty rectangle for a
/// container without room. Points.
[[nodiscard]] Rect fittedMovieFrame(Size container, Size natural);

/// The size that the container of a movie of that natural size starts with: the movie at its own size, and
/// the bar.
[[nodiscard]] Size naturalContainerSize(Size natural);

} // namespace kestro
