#include "platform/movie/WholeMovie.h"

#include "platform/movie/AvFormat.h"
#include "platform/movie/AvInput.h"
#include "platform/movie/MovieProbe.h"

#include <QUrl>

#include <algorithm>

namespace kestro {

namespace {

// Movies seldom end just where the container says.
constexpr double toleratedShare = 0.03;
constexpr double toleratedSeconds = 0.2;

/// The packets of a movie, one after the other.
class Packets final {
public:
    Packets() = default;
    ~Packets() { av_packet_free(&m_packet); }
    Packets(const Packets&) = delete;
    Packets& operator=(const Packets&) = delete;

    /// Reads all of them. False where that ends before the file does.
    [[nodiscard]] bool readAll(const AvInput& input)
    {
        int code = m_packet ? 0 : AVERROR(ENOMEM);
        while (code >= 0) {
            code = av_read_frame(input.context(), m_packet);
            if (code >= 0) note(*input.context()->streams[m_packet->stream_index]);
        }
        return code == AVERROR_EOF && !m_isCut;
    }
    /// When the last one ends, in seconds of their time stamps.
    [[nodiscard]] double end() const { return m_end; }

private:
    void note(const AVStream& stream)
    {
        m_isCut = (m_packet->flags & AV_PKT_FLAG_CORRUPT) != 0;
        if (m_packet->pts != AV_NOPTS_VALUE)
            m_end = std::max(m_end, static_cast<double>(m_packet->pts) * av_q2d(stream.time_base) +
                                        secondsOf(*m_packet, stream));
        av_packet_unref(m_packet);
    }

    [[nodiscard]] static double secondsOf(const AVPacket& packet, const AVStream& stream)
    {
        if (packet.duration > 0) return static_cast<double>(packet.duration) * av_q2d(stream.time_base);
        return stream.avg_frame_rate.num > 0 ? 1 / av_q2d(stream.avg_frame_rate) : 0;
    }

    AVPacket* m_packet = av_packet_alloc();
    double m_end = 0;
    bool m_isCut = false; ///< the last one came in part
};

/// What the container says; 0 where it was guessed from the size of the file.
double statedSeconds(const AvInput& input)
{
    const bool isGuessed = input.context()->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE ||
                           input.context()->duration == AV_NOPTS_VALUE;
    return isGuessed ? 0 : static_cast<double>(input.context()->duration) / AV_TIME_BASE;
}

double startOf(const AvInput& input)
{
    const std::int64_t start = input.context()->start_time;
    return start == AV_NOPTS_VALUE ? 0 : static_cast<double>(start) / AV_TIME_BASE;
}

} // namespace

Result<void, MovieFault> checkWholeMovie(const QString& path, std::chrono::seconds longest)
{
    if (const auto facts = probeMovie(path); !facts) return facts.failure();
    AvInterrupt interrupt;
    interrupt.allow(longest);
    const auto input = AvInput::open(QUrl::fromLocalFile(path), interrupt);
    if (!input) return input.failure();
    Packets packets;
    const double seconds = statedSeconds(*input.value());
    const bool isWhole =
        packets.readAll(*input.value()) &&
        packets.end() >= startOf(*input.value()) + seconds * (1 - toleratedShare) - toleratedSeconds;
    if (!isWhole) return MovieFault{MovieFault::Kind::Damaged};
    return {};
}

} // namespace kestro
