#include "platform/display/surface/SharedSurface.h"

#include "platform/display/view/AlignedImage.h"

#include <QPainter>

#include <utility>

namespace kestro {

namespace {

/// The pixels of a surface on which those of the picture come to lie.
QRegion regionOn(const QRect& place, QSize picture, const QRegion& changed)
{
    if (place.size() == picture) return changed.translated(place.topLeft());
    const double across = double(place.width()) / picture.width();
    const double down = double(place.height()) / picture.height();
    QRegion region;
    for (const QRect& rect : changed)
        region += QRectF(rect.x() * across, rect.y() * down, rect.width() * across, rect.height() * down)
                      .toAlignedRect()
                      .marginsAdded({1, 1, 1, 1}); // pixels are mixed with their neighbours
    return region.translated(place.topLeft()) & place;
}

void fillBlack(QImage& canvas, const QRegion& region)
{
    QPainter painter(&canvas);
    for (const QRect& rect : region)
        painter.fillRect(rect, Qt::black);
}

/// Draws `region` of the canvas, over which the picture lies at `place`.
void copyPicture(QImage& canvas, const QImage& picture, const QRect& place, const QRegion& region)
{
    QPainter painter(&canvas);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (place.size() == picture.size()) {
        for (const QRect& rect : region)
            painter.drawImage(rect.topLeft(), picture, rect.translated(-place.topLeft()));
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setClipRegion(region);
    painter.drawImage(place, picture);
}

} // namespace

void SharedSurface::setParts(std::vector<Part> parts, QSize pixels, double pixelRatio)
{
    m_parts = std::move(parts);
    m_pixels = pixels;
    m_pixelRatio = pixelRatio;
    m_isNew = true;
    const bool isOurs = m_parts.empty() || !isWhole(m_parts.front());
    if (!isOurs)
        m_canvas = {};
    else if (m_canvas.size() != pixels)
        m_canvas = alignedImage(pixels, QImage::Format_RGB32, guardRows);
    setWatched(m_isWatched);
}

bool SharedSurface::isWhole(const Part& part) const
{
    return part.surface->pixelSize() == m_pixels && part.place == QRect({0, 0}, m_pixels);
}

QImage& SharedSurface::canvas()
{
    return m_canvas.isNull() && !m_parts.empty() ? m_parts.front().surface->canvas() : m_canvas;
}

void SharedSurface::present(const QRegion& changed)
{
    const QImage& picture = canvas();
    const bool isFirstDrawn = m_canvas.isNull();
    const bool isNew = std::exchange(m_isNew, false);
    for (std::size_t i = isFirstDrawn ? 1 : 0; i < m_parts.size(); ++i)
        copyTo(m_parts[i], picture, changed, isNew);
    // Last, because the display may be at its pixels from then on.
    if (isFirstDrawn && !m_parts.empty()) m_parts.front().surface->present(changed);
}

void SharedSurface::copyTo(const Part& part, const QImage& picture, const QRegion& changed, bool hasNewBars)
{
    const QRect room({0, 0}, part.surface->pixelSize());
    const QRegion region = regionOn(part.place, picture.size(), changed) & room;
    const QRegion bars = hasNewBars ? QRegion(room) - part.place : QRegion();
    if (region.isEmpty() && bars.isEmpty()) return;
    QImage& canvas = part.surface->canvas();
    fillBlack(canvas, bars);
    copyPicture(canvas, picture, part.place, region);
    part.surface->present(region + bars);
}

void SharedSurface::setCursorHidden(bool hidden)
{
    for (const Part& part : m_parts)
        part.surface->setCursorHidden(hidden);
}

QWindow* SharedSurface::openGLWindow()
{
    return m_parts.empty() ? nullptr : m_parts.front().surface->openGLWindow();
}

std::vector<OpenGLOutput> SharedSurface::openGLOutputs()
{
    std::vector<OpenGLOutput> outputs;
    for (const Part& part : m_parts)
        if (QWindow* const window = part.surface->openGLWindow())
            outputs.push_back({window, part.surface->pixelSize(), part.place});
    return outputs;
}

void SharedSurface::leaveOpenGL()
{
    for (const Part& part : m_parts)
        part.surface->leaveOpenGL();
}

void SharedSurface::setWatched(bool isWatched)
{
    m_isWatched = isWatched;
    for (const Part& part : m_parts)
        part.surface->setWatched(isWatched);
}

} // namespace kestro
