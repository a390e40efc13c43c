#include "platform/movie/StillScaler.h"

#include "platform/display/view/AlignedImage.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/AvFormat.h"
#include "platform/movie/FrameColours.h"

#include <QTransform>

#include <cstring>

namespace kestro {

static constexpr std::size_t bytesPerPixel = 4;
static constexpr int numbersPerPixel = 4;
// Rows are scaled so many pixels at a time, the last few past their end.
static constexpr int pixelsAtOnce = 16;

StillScaler::~StillScaler()
{
    sws_freeContext(m_scaler);
}

static bool hasAlpha(const AVFrame& frame)
{
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    return !format || format->flags & (AV_PIX_FMT_FLAG_ALPHA | AV_PIX_FMT_FLAG_PAL);
}

bool StillScaler::scale(const AVFrame& frame, const PixelTarget& target)
{
    const MovieLight light = lightOf(frame);
    return light.isPlain() ? scaleInto(frame, target, AV_PIX_FMT_BGRA) : scaleAndMap(frame, light, target);
}

bool StillScaler::scaleAndMap(const AVFrame& frame, const MovieLight& light, const PixelTarget& target)
{
    if (!m_toneMap || m_light != light) m_toneMap = std::make_unique<const ToneMap>(light);
    m_light = light;
    const int numbers = alignedStride(target.width) / static_cast<int>(bytesPerPixel) * numbersPerPixel;
    m_wide.resize(static_cast<std::size_t>(numbers) * static_cast<std::size_t>(target.height + 1));
    const PixelTarget wide{reinterpret_cast<unsigned char*>(m_wide.data()), target.width, target.height,
                           numbers * static_cast<int>(sizeof(std::uint16_t))};
    if (!scaleInto(frame, wide, AV_PIX_FMT_RGBA64)) return false;
    for (int row = 0; row < target.height; ++row) {
        auto* const pixels = target.pixels + static_cast<std::ptrdiff_t>(row) * target.stride;
        m_toneMap->mapSixteenBits(m_wide.data() + static_cast<std::ptrdiff_t>(row) * numbers,
                                  reinterpret_cast<std::uint32_t*>(pixels), target.width);
    }
    return true;
}

bool StillScaler::scaleInto(const AVFrame& frame, const PixelTarget& target, int format)
{
    m_scaler = sws_getCachedContext(
        m_scaler, frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), target.width,
        target.height, static_cast<AVPixelFormat>(format), SWS_FAST_BILINEAR, nullptr, nullptr, nullptr);
    if (!m_scaler) return false;
    setColours(m_scaler, frame, false);
    std::uint8_t* planes[4] = {target.pixels, nullptr, nullptr, nullptr};
    const int strides[4] = {target.stride, 0, 0, 0};
    return sws_scale(m_scaler, frame.data, frame.linesize, 0, frame.height, planes, strides) > 0;
}

QImage StillScaler::scaled(const AVFrame& frame, QSize size)
{
    const QImage::Format format = hasAlpha(frame) ? QImage::Format_ARGB32 : QImage::Format_RGB32;
    QImage image = alignedImage(size, format); // what is written past the end of a row stays inside
    if (image.isNull()) return {};
    const PixelTarget target{image.bits(), size.width(), size.height(),
                             static_cast<int>(image.bytesPerLine())};
    if (!scale(frame, target)) return {};
    return format == QImage::Format_RGB32 ? image : image.convertToFormat(QImage::Format_RGB32);
}

QImage StillScaler::picture(const AVFrame& frame, QSize size, int rotation)
{
    if (size.isEmpty() || frame.width <= 0 || frame.height <= 0) return {};
    if (rotation == 0) return scaled(frame, size);
    const QImage flat = scaled(frame, rotation % 180 != 0 ? size.transposed() : size);
    return flat.isNull() ? flat : flat.transformed(QTransform().rotate(rotation));
}

bool StillScaler::draw(const AVFrame& frame, const PixelTarget& target, int rotation)
{
    const bool fits = target.width % pixelsAtOnce == 0;
    if (fits && rotation == 0 && !hasAlpha(frame)) return scale(frame, target);
    const QImage upright = picture(frame, {target.width, target.height}, rotation);
    if (upright.isNull()) return false;
    const auto bytes = static_cast<std::size_t>(target.width) * bytesPerPixel;
    for (int row = 0; row < target.height; ++row)
        std::memcpy(target.pixels + static_cast<std::ptrdiff_t>(row) * target.stride,
                    upright.constScanLine(row), bytes);
    return true;
}

} // namespace kestro
