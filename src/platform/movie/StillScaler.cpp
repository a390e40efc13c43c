#include "platform/movie/StillScaler.h"

#include "platform/movie/AvFormat.h"

#include <QTransform>

namespace kestro {

StillScaler::~StillScaler()
{
    sws_freeContext(m_scaler);
}

static bool hasAlpha(const AVFrame& frame)
{
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    return !format || format->flags & (AV_PIX_FMT_FLAG_ALPHA | AV_PIX_FMT_FLAG_PAL);
}

QImage StillScaler::scaled(const AVFrame& frame, QSize size)
{
    m_scaler = sws_getCachedContext(m_scaler, frame.width, frame.height,
                                    static_cast<AVPixelFormat>(frame.format), size.width(), size.height(),
                                    AV_PIX_FMT_BGRA, SWS_FAST_BILINEAR, nullptr, nullptr, nullptr);
    const QImage::Format format = hasAlpha(frame) ? QImage::Format_ARGB32 : QImage::Format_RGB32;
    QImage image(size, format);
    if (!m_scaler || image.isNull()) return {};
    std::uint8_t* planes[4] = {image.bits(), nullptr, nullptr, nullptr};
    const int strides[4] = {static_cast<int>(image.bytesPerLine()), 0, 0, 0};
    const int rows = sws_scale(m_scaler, frame.data, frame.linesize, 0, frame.height, planes, strides);
    if (rows <= 0) return {};
    return format == QImage::Format_RGB32 ? image : image.convertToFormat(QImage::Format_RGB32);
}

QImage StillScaler::picture(const AVFrame& frame, QSize size, int rotation)
{
    if (size.isEmpty() || frame.width <= 0 || frame.height <= 0) return {};
    if (rotation == 0) return scaled(frame, size);
    const QImage flat = scaled(frame, rotation % 180 != 0 ? size.transposed() : size);
    return flat.isNull() ? flat : flat.transformed(QTransform().rotate(rotation));
}

} // namespace kestro
