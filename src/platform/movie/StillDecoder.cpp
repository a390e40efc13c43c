#include "platform/movie/StillDecoder.h"

#include "platform/movie/AvFormat.h"
#include "platform/movie/DecoderThreads.h"

#include <QThread>

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

void StillDecoder::FreeCodec::operator()(AVCodecContext* codec) const
{
    avcodec_free_context(&codec);
}

void StillDecoder::FreeFrame::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

void StillDecoder::FreePacket::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

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
    const Size natural = m_facts.naturalSize();
    return {static_cast<int>(std::lround(natural.width)), static_cast<int>(std::lround(natural.height))};
}

Picture StillDecoder::picture(double seconds, std::chrono::milliseconds longest, std::stop_token stop)
{
    const std::lock_guard lock(m_mutex);
    m_interrupt.allow(longest, std::move(stop));
    if (!isOpen() || !moveTo(insideMovie(seconds))) return {};
    const QSize size = pictureSize();
    const QImage image = m_scaler.picture(*m_current, size, m_facts.rotation);
    if (image.isNull()) return {};
    return {image, {static_cast<float>(size.width()), static_cast<float>(size.height())}};
}

double StillDecoder::insideMovie(double seconds) const
{
    const double end = m_facts.seconds > 0 ? m_facts.seconds : seconds;
    return std::fmax(0, std::fmin(seconds, end));
}

bool StillDecoder::isOpen()
{
    if (!std::exchange(m_tried, true) && !open()) m_codec.reset();
    return m_codec != nullptr;
}

bool StillDecoder::open()
{
    auto input = AvInput::open(m_url, m_interrupt);
    if (!input) return false;
    m_input = std::move(input.value());
    m_facts = movieFacts(*m_input);
    for (unsigned i = 0; i < m_input->context()->nb_streams; ++i) {
        AVStream* const stream = m_input->context()->streams[i];
        stream->discard = stream == m_input->video() ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    const AVCodec* const decoder = avcodec_find_decoder(m_input->video()->codecpar->codec_id);
    m_codec.reset(avcodec_alloc_context3(decoder));
    m_packet.reset(av_packet_alloc());
    if (!m_codec || !m_packet) return false;
    if (avcodec_parameters_to_context(m_codec.get(), m_input->video()->codecpar) < 0) return false;
    m_codec->pkt_timebase = m_input->video()->time_base;
    m_codec->skip_loop_filter = AVDISCARD_NONREF; // no other frame is made of those
    m_codec->thread_count = decoderThreads(m_facts, QThread::idealThreadCount());
    return avcodec_open2(m_codec.get(), decoder, nullptr) >= 0;
}

double StillDecoder::secondsOf(const AVFrame& frame) const
{
    return m_input->secondsOf(frame.best_effort_timestamp);
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
    const double here = secondsOf(*m_current);
    if (seconds + timeSlack < here) return false;
    if (m_drained) return true;
    AVStream* const video = m_input->video();
    const int entry = av_index_search_timestamp(video, m_input->ptsAt(seconds), AVSEEK_FLAG_BACKWARD);
    if (entry < 0) return seconds < here + 1;
    return m_input->secondsOf(avformat_index_get_entry(video, entry)->timestamp) <= here + nearerBy;
}

bool StillDecoder::decodeFrom(double start, double seconds)
{
    if (!seek(std::fmax(0, start))) return false;
    stepTo(seconds);
    return m_current && (secondsOf(*m_current) <= seconds + timeSlack || start <= 0);
}

bool StillDecoder::seek(double seconds)
{
    const std::int64_t pts = m_input->ptsAt(seconds + timeSlack);
    m_current.reset();
    m_next.reset();
    m_drained = false;
    avcodec_flush_buffers(m_codec.get());
    if (av_seek_frame(m_input->context(), m_input->video()->index, pts, AVSEEK_FLAG_BACKWARD) >= 0)
        return true;
    return av_seek_frame(m_input->context(), m_input->video()->index, pts, 0) >= 0 || seconds <= 0;
}

void StillDecoder::stepTo(double seconds)
{
    while (true) {
        if (!m_next && !takeNext(seconds)) return; // past the end the last one stays
        if (m_current && secondsOf(*m_next) > seconds + timeSlack) return;
        m_current = std::move(m_next);
    }
}

/// Decodes the next frame that has a time; none at the end, or when interrupted.
bool StillDecoder::takeNext(double seconds)
{
    Frame frame(av_frame_alloc());
    while (frame && !m_interrupt.isDue()) {
        const int received = avcodec_receive_frame(m_codec.get(), frame.get());
        if (received == AVERROR_EOF) m_drained = true;
        if (received >= 0) {
            m_next = std::move(frame);
            return true;
        }
        if (received != AVERROR(EAGAIN) || !feed(seconds)) return false;
    }
    return false;
}

bool StillDecoder::isEarly(const AVPacket& packet, double seconds) const
{
    const bool mayBeTheLast = m_facts.seconds <= 0; // where the end is unknown
    if (mayBeTheLast || packet.pts == AV_NOPTS_VALUE || packet.duration <= 0) return false;
    const double margin = m_facts.pictureSeconds > 0 ? skipMarginFrames * m_facts.pictureSeconds : skipMargin;
    return m_input->secondsOf(packet.pts + packet.duration) < seconds - margin;
}

/// Hands the decoder one more packet, or tells it that there is none.
bool StillDecoder::feed(double seconds)
{
    int read = av_read_frame(m_input->context(), m_packet.get());
    while (read >= 0 && m_packet->stream_index != m_input->video()->index) {
        av_packet_unref(m_packet.get());
        read = av_read_frame(m_input->context(), m_packet.get());
    }
    if (read < 0) return avcodec_send_packet(m_codec.get(), nullptr) >= 0;
    m_codec->skip_frame = isEarly(*m_packet, seconds) ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    const int sent = avcodec_send_packet(m_codec.get(), m_packet.get());
    av_packet_unref(m_packet.get());
    return sent >= 0 || sent == AVERROR_INVALIDDATA; // a broken packet is passed over
}

} // namespace kestro
