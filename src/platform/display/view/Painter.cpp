#include "platform/display/view/Painter.h"

#include "platform/display/view/FadedPixels.h"
#include "platform/display/view/PaintRecord.h"
#include "platform/display/view/PixelRect.h"

#include <QPainter>

#include <algorithm>

namespace kestro {

Painter::Painter(QPainter& device, Point viewOrigin, float storeHeight, double pixelRatio,
                 PaintRecord* record)
    : m_device(device)
    , m_viewOrigin(viewOrigin)
    , m_storeHeight(storeHeight)
    , m_pixelRatio(pixelRatio)
    , m_record(record)
{
}

void Painter::fill(const Rect& rect, const QColor& colour)
{
    const QRect pixels = pixelRect(rect);
    noteFill(pixels, colour.alpha());
    if (fillImage(pixels, colour)) return;
    m_device.setCompositionMode(QPainter::CompositionMode_Source);
    m_device.setOpacity(1);
    m_device.fillRect(pixels, colour);
    m_device.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

/// Where the device is an image: a clip of many parts costs it more than the pixels do.
bool Painter::fillImage(const QRect& pixels, const QColor& colour)
{
    if (m_isDeviceOut || m_device.device()->devType() != QInternal::Image) return false;
    auto& target = static_cast<QImage&>(*m_device.device());
    if (target.format() != QImage::Format_ARGB32_Premultiplied) return false;
    const QRgb value = qPremultiply(colour.rgba());
    for (const QRect& rect : clipped(pixels & target.rect()))
        for (int row = rect.top(); row <= rect.bottom(); ++row)
            std::fill_n(reinterpret_cast<QRgb*>(target.scanLine(row)) + rect.left(), rect.width(), value);
    return true;
}

void Painter::draw(const Picture& picture, const Rect& rect, Compositing compositing, double opacity)
{
    const QRect pixels = pixelRect(rect);
    // The device's own copy mode would mix a faint picture with what is there instead of replacing it.
    if (compositing == Compositing::Copy) clear(pixels);
    if (opacity <= 0 || picture.isNull()) return;
    if (m_record) m_record->noteDrawn(pixels);
    m_device.setOpacity(qMin(opacity, 1.0));
    m_device.setRenderHint(QPainter::SmoothPixmapTransform, pixels.size() != picture.image.size());
    m_device.drawImage(pixels, picture.image, picture.image.rect());
    m_device.setOpacity(1);
}

void Painter::drawOnBlack(const Picture& picture, const Rect& rect, const Rect& part, double opacity)
{
    const QRect pixels = pixelRect(part);
    if (pixels.isEmpty()) return;
    if (!copyOnBlack(picture.image, pixelRect(rect), pixels, opacity)) {
        m_device.save();
        m_device.setClipRect(pixels, Qt::IntersectClip);
        fill(part, Qt::black);
        draw(picture, rect, Compositing::SourceOver, opacity);
        m_device.restore();
    }
    noteFill(pixels, 255);
}

/// In one pass, where the device is an image and each pixel of the picture becomes one of it.
bool Painter::copyOnBlack(const QImage& image, const QRect& place, const QRect& part, double opacity)
{
    if (m_device.device()->devType() != QInternal::Image || image.size() != place.size()) return false;
    auto& target = static_cast<QImage&>(*m_device.device());
    for (const QRect& rect : clipped(part & target.rect())) {
        const QRect source = rect.translated(-place.topLeft());
        if (!copyFaded(image, source, target, rect.topLeft(), opacity)) return false;
    }
    return true;
}

QRegion Painter::clipped(const QRect& pixels) const
{
    return m_device.hasClipping() ? m_device.clipRegion() & pixels : QRegion(pixels);
}

QPainter& Painter::device()
{
    if (m_record) m_record->noteAnything();
    m_isDeviceOut = true;
    return m_device;
}

void Painter::noteFill(const QRect& pixels, int alpha)
{
    if (!m_record) return;
    // Who has the device may have narrowed its clip: then not all of the rectangle is filled.
    if (m_isDeviceOut)
        m_record->noteReplaced(pixels);
    else
        m_record->noteFill(pixels, alpha);
}

QRectF Painter::deviceRect(const Rect& rect) const
{
    const double left = double{m_viewOrigin.x} + rect.origin.x;
    const double top = double{m_storeHeight} - (double{m_viewOrigin.y} + rect.origin.y + rect.size.height);
    return {left * m_pixelRatio, top * m_pixelRatio, rect.size.width * m_pixelRatio,
            rect.size.height * m_pixelRatio};
}

QRect Painter::pixelRect(const Rect& rect) const
{
    return pixelRectOf(deviceRect(rect));
}

void Painter::clear(const QRect& pixels)
{
    noteFill(pixels, 0);
    m_device.setCompositionMode(QPainter::CompositionMode_Source);
    m_device.setOpacity(1);
    m_device.fillRect(pixels, Qt::transparent);
    m_device.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

} // namespace kestro
