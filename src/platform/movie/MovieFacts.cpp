#include "platform/movie/MovieFacts.h"

#include "platform/movie/AvFormat.h"
#include "platform/movie/AvInput.h"
#include "platform/movie/DecoderMemory.h"
#include "platform/movie/StreamSideData.h"

#include <cmath>

namespace kestro {

Size MovieFacts::naturalSize() const
{
    double width = codedWidth;
    double height = codedHeight;
    if (pixelAspect > 1) width = std::round(width * pixelAspect);
    if (pixelAspect < 1 && pixelAspect > 0) height = std::round(height / pixelAspect);
    if (isOnItsSide()) std::swap(width, height);
    return {static_cast<float>(width), static_cast<float>(height)};
}

static int clockwiseRotation(const AVStream& stream)
{
    const auto matrix = sideDataOf(stream, AV_PKT_DATA_DISPLAYMATRIX);
    if (matrix.size() < 9 * sizeof(std::int32_t)) return 0;
    const auto* const numbers = reinterpret_cast<const std::int32_t*>(matrix.data());
    const double counterClockwise = av_display_rotation_get(numbers);
    if (!std::isfinite(counterClockwise)) return 0;
    const int quarters = static_cast<int>(std::lround(-counterClockwise / 90));
    return ((quarters % 4) + 4) % 4 * 90;
}

static double aspectOf(AVFormatContext* context, AVStream* stream)
{
    const AVRational aspect = av_guess_sample_aspect_ratio(context, stream, nullptr);
    return aspect.num > 0 && aspect.den > 0 ? av_q2d(aspect) : 1;
}

static double durationOf(const AVFormatContext& context, const AVStream& stream)
{
    if (context.duration != AV_NOPTS_VALUE) return static_cast<double>(context.duration) / AV_TIME_BASE;
    if (stream.duration == AV_NOPTS_VALUE) return 0;
    return static_cast<double>(stream.duration) * av_q2d(stream.time_base);
}

/// Only where what the container promises and what the stream does agree.
static double frameSecondsOf(const AVStream& stream)
{
    const double average = av_q2d(stream.avg_frame_rate);
    const double base = av_q2d(stream.r_frame_rate);
    const bool isConstant = average > 0 && std::isfinite(base) && std::fabs(base - average) < average / 1000;
    return isConstant ? 1 / average : 0;
}

static double framesPerSecondOf(const AVStream& stream)
{
    const double average = av_q2d(stream.avg_frame_rate);
    return average > 0 && std::isfinite(average) ? average : MovieFacts{}.framesPerSecond;
}

static bool isNewerCodec(AVCodecID codec)
{
    switch (codec) {
    case AV_CODEC_ID_HEVC:
    case AV_CODEC_ID_VP9:
    case AV_CODEC_ID_AV1:
    case AV_CODEC_ID_VVC:
        return true;
    default:
        return false;
    }
}

static int bitsPerPixelOf(const AVStream& stream)
{
    const auto* const format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(stream.codecpar->format));
    return format ? av_get_padded_bits_per_pixel(format) : MovieFacts{}.bitsPerPixel;
}

MovieFacts movieFacts(const AvInput& input)
{
    AVFormatContext* const context = input.context();
    AVStream* const stream = input.video();
    const int sound = av_find_best_stream(context, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    return {
        .codedWidth = stream->codecpar->width,
        .codedHeight = stream->codecpar->height,
        .pixelAspect = aspectOf(context, stream),
        .rotation = clockwiseRotation(*stream),
        .seconds = durationOf(*context, *stream),
        .frameSeconds = frameSecondsOf(*stream),
        .framesPerSecond = framesPerSecondOf(*stream),
        .hasNewerCodec = isNewerCodec(stream->codecpar->codec_id),
        .hasSound = sound >= 0,
        .bitsPerPixel = bitsPerPixelOf(*stream),
        .keptFrames = keptFrames(stream->codecpar->codec_id,
                                 qint64{stream->codecpar->width} * stream->codecpar->height),
    };
}

} // namespace kestro
