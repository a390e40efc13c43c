#include "platform/display/surface/image/ImageSurface.h"

#include "platform/display/view/AlignedImage.h"

#include <QPainter>

namespace kestro {

ImageSurface::ImageSurface(QSize pixels, double pixelRatio)
    : m_pixelRatio(pixelRatio)
{
    resize(pixels);
}

void ImageSurface::present(const QRegion& changed)
{
    m_lastPresented = changed;
    ++m_presentCount;
    QPainter painter(&m_shown);
    for (const QRect& rect : changed)
        painter.drawImage(rect.topLeft(), m_canvas, rect);
}

void ImageSurface::resize(QSize pixels)
{
    m_canvas = alignedImage(pixels, QImage::Format_RGB32, guardRows);
    m_shown = QImage(pixels, QImage::Format_RGB32);
    m_shown.fill(Qt::black);
}

void ImageSurface::sendInput(const InputEvent& event) const
{
    if (m_onInput) m_onInput(event);
}

} // namespace kestro
