#include "platform/display/scene/ScreenMapping.h"

#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/PixelRect.h"

namespace kestro {

namespace {

/// A screen of 800 pixels at a ratio of 1.5 is told to be 533 points wide, one of 1000 pixels 667: its far
/// edge is the canvas's far edge all the same, and what lies beyond is measured from there.
int edgeOf(double position, double span, int pixels, double ratio)
{
    return position >= span ? pixels + pixelEdge((position - span) * ratio) : pixelEdge(position * ratio);
}

} // namespace

QRect ScreenMapping::pixelRect(const Rect& global) const
{
    const double left = double{global.origin.x} - frame.origin.x;
    const double bottom = double{global.origin.y} - frame.origin.y;
    const double width = frame.size.width;
    const double height = frame.size.height;
    const int x1 = edgeOf(left, width, pixels.width(), ratio);
    const int x2 = edgeOf(left + global.size.width, width, pixels.width(), ratio);
    const int y1 = edgeOf(bottom, height, pixels.height(), ratio);
    const int y2 = edgeOf(bottom + global.size.height, height, pixels.height(), ratio);
    return {x1, pixels.height() - y2, x2 - x1, y2 - y1};
}

ScreenMapping mappingOf(const Screen& screen)
{
    return {screen.frame(), screen.surface().pixelSize(), screen.surface().pixelRatio()};
}

} // namespace kestro
