#include "widgets/WidgetSurface.h"

#include "platform/display/view/AlignedImage.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

/// Room for the whole span wherever on the pixel grid it starts; a span that is whole but for rounding is
/// taken as whole.
int pixelsOf(int points, double ratio)
{
    constexpr double rounding = 1e-6;
    return std::max(1, static_cast<int>(std::ceil(points * ratio - rounding)));
}

QRect pointsAround(const QRect& pixels, double ratio)
{
    return QRectF(pixels.x() / ratio, pixels.y() / ratio, pixels.width() / ratio, pixels.height() / ratio)
        .toAlignedRect();
}

QRect pixelsAround(const QRect& points, double ratio)
{
    return QRectF(points.x() * ratio, points.y() * ratio, points.width() * ratio, points.height() * ratio)
        .toAlignedRect();
}

} // namespace

WidgetSurface::WidgetSurface(QWidget& widget)
    : m_widget(widget)
{
    follow();
}

bool WidgetSurface::follow()
{
    const double ratio = m_widget.devicePixelRatioF();
    const QSize pixels(pixelsOf(m_widget.width(), ratio), pixelsOf(m_widget.height(), ratio));
    if (pixels == m_canvas.size() && ratio == m_pixelRatio) return false;
    m_pixelRatio = ratio;
    m_canvas = alignedImage(pixels, QImage::Format_RGB32, guardRows);
    return true;
}

void WidgetSurface::present(const QRegion& changed)
{
    QRegion points;
    for (const QRect& rect : changed)
        points += pointsAround(rect, m_pixelRatio);
    m_widget.update(points);
}

void WidgetSurface::setCursorHidden(bool hidden)
{
    if (hidden)
        m_widget.setCursor(Qt::BlankCursor);
    else
        m_widget.unsetCursor();
}

void WidgetSurface::paint(QPainter& painter, const QRegion& exposed) const
{
    // Seen without its ratio the device takes pixel for pixel, from the whole pixel that the corner falls on.
    bool isInvertible = false;
    const QTransform fromDevice = painter.deviceTransform().inverted(&isInvertible);
    if (!isInvertible) return;
    const QPointF corner = painter.deviceTransform().map(QPointF(0, 0));
    painter.save();
    painter.setWorldTransform(QTransform::fromTranslate(std::round(corner.x()), std::round(corner.y())) *
                              fromDevice * painter.worldTransform());
    for (const QRect& rect : exposed) {
        const QRect pixels = pixelsAround(rect, m_pixelRatio) & m_canvas.rect();
        painter.drawImage(pixels.topLeft(), m_canvas, pixels);
    }
    painter.restore();
}

} // namespace kestro
