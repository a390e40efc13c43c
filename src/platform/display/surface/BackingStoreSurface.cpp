#include "platform/display/surface/BackingStoreSurface.h"

#include "platform/display/view/AlignedImage.h"
#include "platform/display/view/PixelRect.h"

#include <QPainter>
#include <QScreen>

#include <cmath>

namespace kestro {

BackingStoreSurface::BackingStoreSurface(Qt::WindowFlags flags, OpenGL* openGL)
    : MonitorSurface(flags, openGL)
{
    m_window.setExposeHandler([this] { repair(); });
    m_window.setSeenHandler([this](bool isSeen) { tellSeen(isSeen); });
}

void BackingStoreSurface::placeOn(QScreen& monitor)
{
    const QRect place = placeOf(monitor);
    m_monitor = &monitor;
    m_window.setScreen(&monitor);
    m_window.setGeometry(place);
    m_size = place.size();
    m_window.create();
    if (!openGLWindow()) {
        if (!m_store) m_store = std::make_unique<QBackingStore>(&m_window);
        m_store->resize(place.size());
    }
    const QSize pixels = wantedPixels();
    if (pixels != m_canvas.size()) m_canvas = alignedImage(pixels, QImage::Format_RGB32, guardRows);
}

QSize BackingStoreSurface::wantedPixels() const
{
    const double ratio = m_window.devicePixelRatio();
    return {pixelEdge(m_size.width() * ratio), pixelEdge(m_size.height() * ratio)};
}

void BackingStoreSurface::show()
{
    m_window.showFullScreen();
    m_window.requestActivate();
}

/// A window keeps the kind it was created as.
void BackingStoreSurface::leaveOpenGL()
{
    if (!openGLWindow()) return;
    MonitorSurface::leaveOpenGL();
    const bool isShown = m_window.isVisible();
    m_window.destroy();
    m_window.setSurfaceType(QSurface::RasterSurface);
    placeOn(*m_monitor);
    if (isShown) show();
}

void BackingStoreSurface::present(const QRegion& changed)
{
    if (!m_window.isExposed() || !m_store) return; // all of it is presented when the window appears
    const double ratio = m_window.devicePixelRatio();
    QRegion points;
    for (const QRect& rect : changed)
        points += QRectF(rect.x() / ratio, rect.y() / ratio, rect.width() / ratio, rect.height() / ratio)
                      .toAlignedRect();
    points &= QRect({0, 0}, m_store->size());
    m_store->beginPaint(points);
    copyToStore(changed);
    m_store->endPaint();
    m_store->flush(points);
}

void BackingStoreSurface::copyToStore(const QRegion& changed)
{
    QPaintDevice* const device = m_store->paintDevice();
    if (device->devType() != QInternal::Image) {
        QPainter painter(device);
        painter.drawImage(QRectF({0, 0}, QSizeF(m_store->size())), m_canvas);
        return;
    }
    // Seen without its ratio, the image takes pixel for pixel.
    auto& image = *static_cast<QImage*>(device);
    QImage pixels(image.bits(), image.width(), image.height(), image.bytesPerLine(), image.format());
    QPainter painter(&pixels);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& rect : changed)
        painter.drawImage(rect.topLeft(), m_canvas, rect);
}

} // namespace kestro
