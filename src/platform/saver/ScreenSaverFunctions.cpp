#include "platform/saver/ScreenSaverFunctions.h"

#include <cmath>

namespace kestro {

int SSRandomIntBetween(Random& random, int a, int b)
{
    constexpr float randomRange = 2147483648.0F;
    const std::int64_t range = std::int64_t(b) - a;
    const std::int64_t n = range < 0 ? range - 1 : range + 1;
    const float share = static_cast<float>(random.next()) / randomRange;
    const auto value = static_cast<std::int64_t>(share * static_cast<float>(n));
    // Beyond n as well: a float has 24 bits, so an n wider than that may itself have been rounded away from
    // zero.
    const bool isPastTheEnd = std::abs(value) >= std::abs(n);
    return static_cast<int>(isPastTheEnd ? a : a + value);
}

Rect SSCenteredRectInRect(const Rect& inner, const Rect& outer)
{
    const Size spare = {outer.size.width - inner.size.width, outer.size.height - inner.size.height};
    return {{std::floor(spare.width / 2), std::floor(spare.height / 2)}, inner.size};
}

} // namespace kestro
