#pragma once

#include "platform/base/Random.h"
#include "platform/display/view/Geometry.h"

namespace kestro {

/// A whole number from `a` to `b`, both included. With r = b - a and n = r - 1 for a negative r, else r + 1,
/// the answer is a plus the whole part of (random / 2^31 * n) in single precision; a itself where rounding
/// makes that part n.
[[nodiscard]] int SSRandomIntBetween(Random& random, int a, int b);

/// `inner`'s size centred in `outer`'s, at whole points (rounded down); `outer`'s origin is not added.
[[nodiscard]] Rect SSCenteredRectInRect(const Rect& inner, const Rect& outer);

} // namespace kestro
