#pragma once

#include <QImage>
#include <QMargins>
#include <QSize>

namespace kestro {

/// The soft shadow that a window throws on what lies below it: the light comes from above, so it reaches
/// further down than up. Without state; any thread. Pixels from the top left.
struct WindowShadow {
    /// How far the shadow reaches beyond the window's edges at `pixelRatio` pixels a point.
    [[nodiscard]] static QMargins reach(double pixelRatio);

    /// The shadow of a window of that size, as large as the window and its reach: black, ARGB32
    /// premultiplied, densest beside the window, clear at its own edges and under the window. Null where the
    /// window is empty.
    [[nodiscard]] static QImage image(QSize window, double pixelRatio);
};

} // namespace kestro
