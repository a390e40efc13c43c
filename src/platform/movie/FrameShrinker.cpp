#include "platform/movie/FrameShrinker.h"

#include "platform/movie/AvFormat.h"
#include "platform/movie/FrameColours.h"

#include <utility>

namespace kestro {

// Less than that is not worth the work.
static constexpr qint64 worthwhile = 2;

FrameShrinker::~FrameShrinker()
{
    sws_freeContext(m_scaler);
}

/// Brightness and colours in three planes or so, nothing to see through.
static bool isPlain(const AVFrame& frame)
{
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    static constexpr auto others = AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_ALPHA;
    return format && !(format->flags & others);
}

static int even(int pixels)
{
    return (pixels + 1) / 2 * 2;
}

Frame FrameShrinker::shrunk(Frame frame, QSize size)
{
    const qint64 pixels = qint64{frame->width} * frame->height;
    const QSize wanted(even(size.width()), even(size.height()));
    const bool isLarger = pixels >= worthwhile * wanted.width() * wanted.height();
    if (size.isEmpty() || !isLarger || !isPlain(*frame)) return frame;
    Frame copy = copyOf(*frame, wanted);
    return copy ? std::move(copy) : std::move(frame);
}

Frame FrameShrinker::copyOf(const AVFrame& frame, QSize size)
{
    Frame copy(av_frame_alloc());
    const AVPixelFormat format = lightOf(frame).isPlain() ? AV_PIX_FMT_YUV420P : AV_PIX_FMT_YUV420P10;
    m_scaler = sws_getCachedContext(m_scaler, frame.width, frame.height,
                                    static_cast<AVPixelFormat>(frame.format), size.width(), size.height(),
                                    format, SWS_FAST_BILINEAR, nullptr, nullptr, nullptr);
    if (!copy || !m_scaler || av_frame_copy_props(copy.get(), &frame) < 0) return nullptr;
    setColours(m_scaler, frame, true);
    copy->format = format;
    copy->width = size.width();
    copy->height = size.height();
    copy->colorspace = static_cast<AVColorSpace>(coloursOf(frame));
    copy->color_range = hasFullRange(frame) ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    if (av_frame_get_buffer(copy.get(), 0) < 0) return nullptr;
    const int rows =
        sws_scale(m_scaler, frame.data, frame.linesize, 0, frame.height, copy->data, copy->linesize);
    return rows > 0 ? std::move(copy) : nullptr;
}

} // namespace kestro
