#include "platform/movie/ReverseDecoder.h"

#include "platform/movie/AvFormat.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace kestro {

// Past the last frame, whatever its time.
static constexpr std::int64_t end = std::numeric_limits<std::int64_t>::max();
// Half a millisecond, so that a time that was rounded to whole units still meets its frame.
static constexpr double timeSlack = 0.0005;
// Where a container seeks by other times than those of the frames, earlier places are tried.
static constexpr double firstStepBack = 0.25;
// Farther than any movie lasts, where its duration is not known.
static constexpr double farAway = 1e6;

ReverseDecoder::ReverseDecoder(QUrl url, std::shared_ptr<FrameMemory> memory,
                               std::chrono::milliseconds longestRead)
    : m_url(std::move(url))
    , m_memory(std::move(memory))
    , m_longestRead(longestRead)
{
}

ReverseDecoder::~ReverseDecoder() = default;

void ReverseDecoder::startAt(double seconds)
{
    m_start = seconds;
    m_begun = false;
}

Result<ReverseDecoder::Frames> ReverseDecoder::next(const std::stop_token& stop)
{
    m_stop = stop;
    extendTime();
    if (const auto opened = m_decoder ? Result<void>() : open(); !opened) return opened.failure();
    if (!std::exchange(m_begun, true)) begin();
    while (m_cursor > m_first.stamp) {
        auto frames = decodeStretch();
        if (!frames || !frames.value().empty()) return frames;
    }
    return Frames{};
}

static Error cannotBeSought()
{
    return {QStringLiteral("it cannot be sought")};
}

static bool isSeekable(const AVFormatContext& context)
{
    const bool isStream = context.pb && !(context.pb->seekable & AVIO_SEEKABLE_NORMAL);
    return !isStream && !(context.ctx_flags & AVFMTCTX_UNSEEKABLE);
}

Result<void> ReverseDecoder::open()
{
    auto decoder = FrameDecoder::open(m_url, m_interrupt, FrameDecoder::Use::Backwards);
    if (!decoder) return Error{plainWords(decoder.failure())};
    if (!isSeekable(*decoder.value()->input().context())) return cannotBeSought();
    m_decoder = std::move(decoder.value());
    const MovieFacts& facts = m_decoder->facts();
    m_frameBytes = static_cast<std::size_t>(facts.codedWidth) * facts.codedHeight * 3 / 2;
    const auto first = readKeyframe();
    if (const auto ended = checkEnd(); !first && !ended) return ended;
    if (!first) return Error{QStringLiteral("no keyframe in it")};
    m_first = *first;
    return {};
}

void ReverseDecoder::begin()
{
    const double seconds = m_decoder->facts().seconds;
    const bool isAtEnd = seconds > 0 && m_start >= seconds - timeSlack;
    const std::int64_t behind = m_decoder->input().ptsAt(m_start + timeSlack) + 1;
    m_cursor = isAtEnd ? end : std::max(behind, m_first.stamp + 1);
    m_group.reset();
}

/// Reads on to the next keyframe, which is decoded next.
std::optional<ReverseDecoder::Group> ReverseDecoder::readKeyframe()
{
    while (const AVPacket* const packet = m_decoder->read()) {
        extendTime();
        const bool hasTime = packet->pts != AV_NOPTS_VALUE || packet->dts != AV_NOPTS_VALUE;
        if (!hasTime || !(packet->flags & AV_PKT_FLAG_KEY)) continue;
        const std::int64_t stamp = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
        return Group{stamp, packet->dts != AV_NOPTS_VALUE ? packet->dts : stamp, 0};
    }
    return std::nullopt;
}

/// Decodes what comes before the cursor, all that there is room for. Frames that there would be none for
/// are left out where possible, but where none is left at all that was a mistake.
Result<ReverseDecoder::Frames> ReverseDecoder::decodeStretch()
{
    for (const bool leavesOut : {true, false}) {
        if (const auto gone = goToGroup(); !gone) return gone.failure();
        if (!m_group) break;
        const std::int64_t from = leavesOut ? std::max(worthwhileFrom(), m_group->stamp) : m_group->stamp;
        auto frames = decodeGroup(from);
        if (!frames) return frames;
        if (frames.value().empty() && m_dropped) continue;
        moveCursor(frames.value());
        return frames;
    }
    m_cursor = m_first.stamp;
    return Frames{};
}

/// Seeks to the group of frames in which the cursor lies, or that ends at it.
Result<void> ReverseDecoder::goToGroup()
{
    const std::int64_t stepBack = m_decoder->input().ptsAt(firstStepBack) - m_decoder->input().ptsAt(0);
    std::int64_t to = firstTry();
    bool wasSought = false;
    for (std::int64_t step = 1;; step = std::max(2 * step, stepBack)) {
        to = std::max(to, m_first.decodingTime);
        extendTime();
        wasSought |= m_decoder->seek(to);
        const auto group = readKeyframe();
        m_group = group && group->stamp < m_cursor ? group : std::nullopt;
        if (m_group) m_group->seekStamp = to;
        if (m_group) return {};
        if (m_interrupt.isDue()) return checkEnd();
        if (to <= m_first.decodingTime) return wasSought ? checkEnd() : cannotBeSought();
        to = std::min(to, group ? group->decodingTime : to) - step;
    }
}

std::int64_t ReverseDecoder::firstTry() const
{
    if (m_group) return m_group->stamp < m_cursor ? m_group->seekStamp : m_group->decodingTime - 1;
    if (m_cursor != end) return m_cursor - 1;
    const double seconds = m_decoder->facts().seconds;
    return m_decoder->input().ptsAt(seconds > 0 ? seconds : farAway);
}

/// Earlier frames would find no room, when they last as long as all do on average.
std::int64_t ReverseDecoder::worthwhileFrom() const
{
    const MovieFacts& facts = m_decoder->facts();
    const AvInput& input = m_decoder->input();
    if (m_cursor == end && facts.seconds <= 0) return 0;
    const double before = m_cursor == end ? facts.seconds : input.secondsOf(m_cursor);
    // What is kept now goes while this is decoded: half of it, say.
    const std::size_t room = m_memory->most() - std::min(m_memory->most(), m_memory->used() / 2);
    const double frames = static_cast<double>(room) / static_cast<double>(m_frameBytes);
    return input.ptsAt(before - frames / facts.framesPerSecond);
}

/// Frames of before the group's keyframe need those of the group before it, and come with that.
Result<ReverseDecoder::Frames> ReverseDecoder::decodeGroup(std::int64_t from)
{
    m_dropped = from > m_group->stamp;
    Frames frames;
    const auto mayLeaveOut = [this, from](const AVPacket& packet) {
        extendTime();
        return packet.pts != AV_NOPTS_VALUE && packet.pts < from;
    };
    while (Frame frame = m_decoder->next(mayLeaveOut)) {
        const std::int64_t stamp = frame->best_effort_timestamp;
        if (stamp >= m_cursor) return frames;
        const std::int64_t last = frames.empty() ? from - 1 : frames.back().frame().best_effort_timestamp;
        if (stamp > last) keep(frames, std::move(frame));
    }
    if (const auto ended = checkEnd(); !ended) return ended.failure();
    return frames;
}

void ReverseDecoder::keep(Frames& frames, Frame frame)
{
    const double seconds = m_decoder->secondsOf(*frame);
    const int rotation = m_decoder->facts().rotation;
    frame = m_shrinker.shrunk(std::move(frame), rotation % 180 != 0 ? m_drawn.transposed() : m_drawn);
    m_frameBytes = bytesOf(*frame);
    while (!frames.empty() && m_memory->used() + m_frameBytes > m_memory->most()) {
        frames.pop_front();
        m_dropped = true;
    }
    frames.emplace_back(std::move(frame), seconds, rotation, m_memory);
}

void ReverseDecoder::moveCursor(const Frames& frames)
{
    m_cursor = m_dropped ? frames.front().frame().best_effort_timestamp : m_group->stamp;
}

/// Whether there was no more to read or to decode because that was the end of the movie. Where a movie breaks
/// off, its end is there.
Result<void> ReverseDecoder::checkEnd() const
{
    if (m_stop.stop_requested()) return Error{QStringLiteral("stopped")};
    if (m_interrupt.isDue()) return Error{QStringLiteral("no answer in time")};
    const bool isCutShort = m_decoder->brokeOff() && m_cursor != end;
    if (isCutShort) return Error{QStringLiteral("reading it broke off")};
    return {};
}

} // namespace kestro
