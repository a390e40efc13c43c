#include "platform/display/view/WindowShadow.h"

#include <QRectF>
#include <QRegion>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

constexpr double blur = 12;     ///< points over which the shadow fades away
constexpr double drop = 4;      ///< points by which it lies lower than its window
constexpr double density = 0.5; ///< alpha right under the window's edge

/// From a point to a rectangle; 0 inside.
double distanceTo(const QRectF& rect, double x, double y)
{
    const double across = std::max({rect.left() - x, x - rect.right(), 0.0});
    const double along = std::max({rect.top() - y, y - rect.bottom(), 0.0});
    return std::hypot(across, along);
}

QRgb shadowAt(double distance, double reach)
{
    const double nearness = std::max(0.0, 1 - distance / reach);
    return qRgba(0, 0, 0, static_cast<int>(std::lround(255 * density * nearness * nearness)));
}

} // namespace

QMargins WindowShadow::reach(double pixelRatio)
{
    const int side = static_cast<int>(std::ceil(blur * pixelRatio));
    const int lower = static_cast<int>(std::lround(drop * pixelRatio));
    return {side, std::max(side - lower, 0), side, side + lower};
}

QImage WindowShadow::image(QSize window, double pixelRatio)
{
    if (window.isEmpty()) return {};
    const QMargins margins = reach(pixelRatio);
    QImage image(window.grownBy(margins), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QRectF caster(margins.left(), margins.left(), window.width(), window.height());
    const QRegion seen = QRegion(image.rect()) - image.rect().marginsRemoved(margins);
    for (const QRect& part : seen)
        for (int y = part.top(); y <= part.bottom(); ++y) {
            auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = part.left(); x <= part.right(); ++x)
                row[x] = shadowAt(distanceTo(caster, x + 0.5, y + 0.5), margins.left());
        }
    return image;
}

} // namespace kestro
