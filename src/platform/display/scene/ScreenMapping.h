#pragma once

#include "platform/display/view/Geometry.h"

#include <QRect>
#include <QSize>

namespace kestro {

class Screen;

/// Turns global points into pixels of one screen's canvas, and with that y upwards into rows downwards. This
/// is the one place where the flip happens for the screen. A value; any thread. Tested by DenseScreenTest.
struct ScreenMapping {
    Rect frame;       ///< the screen's, global points
    QSize pixels;     ///< of the canvas
    double ratio = 1; ///< pixels a point

    [[nodiscard]] QRect pixelRect(const Rect& global) const;
    [[nodiscard]] QRect canvasRect() const { return {QPoint(0, 0), pixels}; }
};

[[nodiscard]] ScreenMapping mappingOf(const Screen& screen);

} // namespace kestro
