#include "platform/web/PageLayer.h"

#include "platform/web/SharedFrames.h"

#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace kestro {

namespace {

QImage imageOf(const PixelTarget& target)
{
    return {target.pixels, target.width, target.height, target.stride, QImage::Format_RGB32};
}

/// Views are asked for even widths, so an odd page may lack one column, which then repeats its neighbour.
bool isSameSize(const PixelTarget& target, QSize size)
{
    return target.height == size.height() && target.width - size.width() >= 0 &&
           target.width - size.width() <= 1;
}

void copyRows(const uchar* from, qsizetype fromStride, QSize size, const PixelTarget& target)
{
    const auto rowBytes = static_cast<size_t>(size.width()) * 4;
    for (int y = 0; y < size.height(); ++y) {
        uchar* const row = target.pixels + qsizetype{y} * target.stride;
        std::memcpy(row, from + y * fromStride, rowBytes);
        if (target.width > size.width()) std::memcpy(row + rowBytes, row + rowBytes - 4, 4);
    }
}

} // namespace

PageLayer::~PageLayer() = default;

void PageLayer::showFrame(std::shared_ptr<SharedFrames> frames, int slot)
{
    m_frames = std::move(frames);
    m_slot = slot;
    m_isBlack = false;
    announceFrame();
}

void PageLayer::showBlack()
{
    m_frames.reset();
    m_isBlack = true;
    announceFrame();
}

bool PageLayer::render(const PixelTarget& target)
{
    if (!hasFrame()) return false;
    QImage whole = imageOf(target);
    if (m_isBlack) {
        whole.fill(Qt::black);
        return true;
    }
    const QSize size = m_frames->size();
    const uchar* const pixels = m_frames->pixels(m_slot);
    if (isSameSize(target, size)) {
        copyRows(pixels, m_frames->bytesPerLine(), size, target);
        return true;
    }
    QPainter painter(&whole);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(whole.rect(), QImage(pixels, size.width(), size.height(), m_frames->bytesPerLine(),
                                           QImage::Format_RGB32));
    return true;
}

} // namespace kestro
