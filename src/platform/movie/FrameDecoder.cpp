#include "platform/movie/FrameDecoder.h"

#include "platform/movie/AvFormat.h"
#include "platform/movie/DecoderMemory.h"
#include "platform/movie/DecoderThreads.h"

#include <QThread>

#include <utility>

namespace kestro {

// Backwards, a group of frames that does not fit into memory is decoded for each stretch of it.
static constexpr double timesDecoded = 3;

void FreeAv::operator()(AVCodecContext* codec) const
{
    avcodec_free_context(&codec);
}

void FreeAv::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

void FreeAv::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

Result<std::unique_ptr<FrameDecoder>, MovieFault> FrameDecoder::open(const QUrl& url, AvInterrupt& interrupt,
                                                                     Use use)
{
    auto input = AvInput::open(url, interrupt);
    if (!input) return input.failure();
    auto decoder = std::unique_ptr<FrameDecoder>(new FrameDecoder(interrupt));
    decoder->m_input = std::move(input.value());
    if (const auto opened = decoder->openCodec(use); !opened) return opened.failure();
    return decoder;
}

Result<void, MovieFault> FrameDecoder::openCodec(Use use)
{
    using Kind = MovieFault::Kind;
    AVStream* const video = m_input->video();
    for (unsigned i = 0; i < m_input->context()->nb_streams; ++i) {
        AVStream* const stream = m_input->context()->streams[i];
        stream->discard = stream == video ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    m_facts = movieFacts(*m_input);
    MovieFacts asFast = m_facts;
    if (use == Use::Backwards) asFast.framesPerSecond *= timesDecoded;
    const AVCodec* const codec = avcodec_find_decoder(video->codecpar->codec_id);
    m_codec.reset(avcodec_alloc_context3(codec));
    m_packet.reset(av_packet_alloc());
    if (!m_codec || !m_packet) return MovieFault{Kind::OutOfMemory};
    if (avcodec_parameters_to_context(m_codec.get(), video->codecpar) < 0)
        return MovieFault{Kind::Other, QStringLiteral("its decoder cannot be set up")};
    m_codec->pkt_timebase = video->time_base;
    if (use == Use::Stills) m_codec->skip_loop_filter = AVDISCARD_NONREF; // no other frame is made of those
    m_codec->max_pixels = mostFramePixels(m_facts);
    m_codec->thread_count = decoderThreads(asFast, QThread::idealThreadCount());
    if (avcodec_open2(m_codec.get(), codec, nullptr) >= 0) return {};
    return MovieFault{Kind::Other, QStringLiteral("its decoder cannot be opened")};
}

double FrameDecoder::secondsOf(const AVFrame& frame) const
{
    return m_input->secondsOf(frame.best_effort_timestamp);
}

bool FrameDecoder::seek(std::int64_t stamp)
{
    forgetPacket();
    m_atEnd = false;
    m_brokeOff = false;
    avcodec_flush_buffers(m_codec.get());
    const int index = m_input->video()->index;
    return av_seek_frame(m_input->context(), index, stamp, AVSEEK_FLAG_BACKWARD) >= 0 ||
           av_seek_frame(m_input->context(), index, stamp, 0) >= 0;
}

void FrameDecoder::forgetPacket()
{
    av_packet_unref(m_packet.get());
    m_hasPacket = false;
}

const AVPacket* FrameDecoder::read()
{
    int read = 0;
    do {
        forgetPacket();
        read = av_read_frame(m_input->context(), m_packet.get());
    } while (read >= 0 && m_packet->stream_index != m_input->video()->index);
    m_brokeOff = read < 0 && read != AVERROR_EOF;
    m_hasPacket = read >= 0;
    return m_hasPacket ? m_packet.get() : nullptr;
}

Frame FrameDecoder::next(const MayLeaveOut& mayLeaveOut)
{
    Frame frame(av_frame_alloc());
    while (frame && !m_interrupt.isDue()) {
        const int received = avcodec_receive_frame(m_codec.get(), frame.get());
        if (received >= 0) return frame;
        if (received == AVERROR_EOF) m_atEnd = true;
        if (received != AVERROR(EAGAIN) || !feed(mayLeaveOut)) return nullptr;
    }
    return nullptr;
}

/// Hands the decoder one more packet, or tells it that there is none.
bool FrameDecoder::feed(const MayLeaveOut& mayLeaveOut)
{
    if (!m_hasPacket && !read()) return avcodec_send_packet(m_codec.get(), nullptr) >= 0;
    m_codec->skip_frame = mayLeaveOut(*m_packet) ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    const int sent = avcodec_send_packet(m_codec.get(), m_packet.get());
    forgetPacket();
    return sent >= 0 || sent == AVERROR_INVALIDDATA; // a broken packet is passed over
}

} // namespace kestro
