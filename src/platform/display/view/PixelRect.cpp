#include "platform/display/view/PixelRect.h"

#include <algorithm>
#include <cmath>

namespace kestro {

int pixelEdge(double position)
{
    constexpr double furthest = 1 << 20;
    if (std::isnan(position)) return 0;
    return static_cast<int>(std::lround(std::clamp(position, -furthest, furthest)));
}

QRect pixelRectOf(const QRectF& rect)
{
    const int left = pixelEdge(rect.left());
    const int top = pixelEdge(rect.top());
    return {left, top, pixelEdge(rect.right()) - left, pixelEdge(rect.bottom()) - top};
}

} // namespace kestro
