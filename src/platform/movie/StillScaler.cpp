#include "platform/movie/StillScaler.h"

#include "platform/display/AlignedImage.h"
#include "platform/display/Layer.h"
#include "platform/movie/AvFormat.h"

#include <QTransform>

#include <algorithm>
#include <cstring>

namespace kestro {

static constexpr std::size_t bytesPerPixel = 4;
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

/// Frames that do not name their colour space are taken for what players take them for.
static int coloursOf(const AVFrame& frame)
{
    const bool isKnown = frame.colorspace != AVCOL_SPC_UNSPECIFIED && frame.colorspace != AVCOL_SPC_RGB;
    if (isKnown) return frame.colorspace;
    const bool isLarge = frame.width >= 1280 || frame.height > 576;
    return isLarge ? SWS_CS_ITU709 : SWS_CS_ITU601;
}

static bool hasFullRange(const AVFrame& frame)
{
    switch (frame.format) {
    case AV_PIX_FMT_YUVJ420P:
    case AV_PIX_FMT_YUVJ422P:
    case AV_PIX_FMT_YUVJ444P:
        return true;
    default:
        return frame.color_range == AVCOL_RANGE_JPEG;
    }
}

/// Setting them anew costs more than asking which are set.
static void setColours(SwsContext* scaler, const AVFrame& frame)
{
    const int* const wanted = sws_getCoefficients(coloursOf(frame));
    const int wantedRange = hasFullRange(frame) ? 1 : 0;
    int* colours = nullptr;
    int* colourOut = nullptr;
    int range = 0;
    int rangeOut = 0;
    int brightness = 0;
    int contrast = 0;
    int saturation = 0;
    const int asked = sws_getColorspaceDetails(scaler, &colours, &range, &colourOut, &rangeOut, &brightness,
                                               &contrast, &saturation);
    if (asked < 0 || (std::equal(wanted, wanted + 4, colours) && range == wantedRange)) return;
    sws_setColorspaceDetails(scaler, wanted, wantedRange, colourOut, rangeOut, brightness, contrast,
                             saturation);
}

bool StillScaler::scale(const AVFrame& frame, const PixelTarget& target)
{
    m_scaler = sws_getCachedContext(m_scaler, frame.width, frame.height,
                                    static_cast<AVPixelFormat>(frame.format), target.width, target.height,
                                    AV_PIX_FMT_BGRA, SWS_FAST_BILINEAR, nullptr, nullptr, nullptr);
    if (!m_scaler) return false;
    setColours(m_scaler, frame);
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
