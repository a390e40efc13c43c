#include "platform/movie/StillDecoder.h"

#include "platform/movie/AvFormat.h"

#include <cmath>
#include <utility>

namespace kestro {

// Decoding on costs less than starting anew at a keyframe unless that one is nearer by more than this.
static constexpr double nearerBy = 0.3;
// Frames that end more than this ahead of the wanted time, and that no other frame needs, are not decoded:
// half a frame where all last equally long, else seconds.
static constexpr double skipMarginFrames = 0.5;
static constexpr double skipMargin = 0.25;
// Half a millisecond, so that a time that was rounded to whole units still meets its frame.
static constexpr double timeSlack = 0.0005;

StillDecoder::StillDecoder(QUrl url)
    : m_url(std::move(url))
{
}

StillDecoder::~StillDecoder()
{
    m_interrupt.interrupt();
    const std::lock_guard wait(m_mutex);
}

void StillDecoder::setSize(QSize size)
{
    const std::lock_guard lock(m_sizeMutex);
    m_size = size;
}

QSize StillDecoder::pictureSize()
{
    const std::lock_guard lock(m_sizeMutex);
    if (!m_size.isEmpty()) return m_size;
    const Size natural = m_decoder->facts().naturalSize();
    return {static_cast<int>(std::lround(natural.width)), static_cast<int>(std::lround(natural.height))};
}

Picture StillDecoder::picture(double seconds, std::chrono::milliseconds longest, std::stop_token stop)
{
    const std::lock_guard lock(m_mutex);
    m_interrupt.allow(longest, std::move(stop));
    if (!isOpen() || !moveTo(insideMovie(seconds))) return {};
    const QSize size = pictureSize();
    const QImage image = m_scaler.picture(*m_current, size, m_decoder->facts().rotation);
    if (image.isNull()) return {};
    return {image, {static_cast<float>(size.width()), static_cast<float>(size.height())}};
}

double StillDecoder::insideMovie(double seconds) const
{
    const double known = m_decoder->facts().seconds;
    const double end = known > 0 ? known : seconds;
    return std::fmax(0, std::fmin(seconds, end));
}

bool StillDecoder::isOpen()
{
    if (std::exchange(m_tried, true)) return m_decoder != nullptr;
    auto decoder = FrameDecoder::open(m_url, m_interrupt, FrameDecoder::Use::Stills);
    if (decoder) m_decoder = std::move(decoder.value());
    return m_decoder != nullptr;
}

bool StillDecoder::moveTo(double seconds)
{
    if (isForwardCheaper(seconds)) {
        stepTo(seconds);
        return m_current != nullptr;
    }
    // A seek may land after the frame it is for where time stamps are out of order; then it starts earlier.
    for (const double runUp : {0.0, 2.0, 10.0}) {
        if (decodeFrom(seconds - runUp, seconds)) return true;
        if (seconds <= runUp || m_interrupt.isDue()) break;
    }
    return decodeFrom(0, seconds) || m_current != nullptr;
}

bool StillDecoder::isForwardCheaper(double seconds) const
{
    if (!m_current) return false;
    const double here = m_decoder->secondsOf(*m_current);
    if (seconds + timeSlack < here) return false;
    if (m_decoder->isAtEnd()) return true;
    const AvInput& input = m_decoder->input();
    const int entry = av_index_search_timestamp(input.video(), input.ptsAt(seconds), AVSEEK_FLAG_BACKWARD);
    if (entry < 0) return seconds < here + 1;
    return input.secondsOf(avformat_index_get_entry(input.video(), entry)->timestamp) <= here + nearerBy;
}

bool StillDecoder::decodeFrom(double start, double seconds)
{
    if (!seek(std::fmax(0, start))) return false;
    stepTo(seconds);
    return m_current && (m_decoder->secondsOf(*m_current) <= seconds + timeSlack || start <= 0);
}

bool StillDecoder::seek(double seconds)
{
    m_current.reset();
    m_next.reset();
    return m_decoder->seek(m_decoder->input().ptsAt(seconds + timeSlack)) || seconds <= 0;
}

void StillDecoder::stepTo(double seconds)
{
    while (true) {
        if (!m_next && !takeNext(seconds)) return; // past the end the last one stays
        if (m_current && m_decoder->secondsOf(*m_next) > seconds + timeSlack) return;
        m_current = std::move(m_next);
    }
}

bool StillDecoder::takeNext(double seconds)
{
    m_next = m_decoder->next([this, seconds](const AVPacket& packet) { return isEarly(packet, seconds); });
    return m_next != nullptr;
}

bool StillDecoder::isEarly(const AVPacket& packet, double seconds) const
{
    const MovieFacts& facts = m_decoder->facts();
    const bool mayBeTheLast = facts.seconds <= 0; // where the end is unknown
    if (mayBeTheLast || packet.pts == AV_NOPTS_VALUE || packet.duration <= 0) return false;
    const double margin = facts.frameSeconds > 0 ? skipMarginFrames * facts.frameSeconds : skipMargin;
    return m_decoder->input().secondsOf(packet.pts + packet.duration) < seconds - margin;
}

} // namespace kestro
