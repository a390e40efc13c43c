#include "platform/movie/KeyframeDistance.h"

#include "platform/movie/AvFormat.h"
#include "platform/movie/AvInput.h"

#include <QUrl>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace kestro {

static constexpr int mostPackets = 2000;
static constexpr std::chrono::milliseconds longestLook{250};

/// Counts the pictures between keyframes as they go by.
class KeyframeRuns final {
public:
    void add(bool keyframe)
    {
        m_run = keyframe ? 1 : m_run + 1;
        m_longest = std::max(m_longest, m_run);
    }
    [[nodiscard]] int longest() const { return m_longest; }

private:
    int m_run = 0;
    int m_longest = 0;
};

/// Only where the index lists every picture; some containers list the keyframes alone.
static int distanceByIndex(AVStream* video)
{
    KeyframeRuns runs;
    bool listsOthers = false;
    for (int i = 0; i < avformat_index_get_entries_count(video); ++i) {
        const bool keyframe = avformat_index_get_entry(video, i)->flags & AVINDEX_KEYFRAME;
        listsOthers |= !keyframe;
        runs.add(keyframe);
    }
    return listsOthers ? runs.longest() : 0;
}

static int distanceByPackets(const AvInput& input)
{
    KeyframeRuns runs;
    AVPacket* packet = av_packet_alloc();
    for (int seen = 0; packet && seen < mostPackets && av_read_frame(input.context(), packet) >= 0; ++seen) {
        if (packet->stream_index == input.video()->index) runs.add(packet->flags & AV_PKT_FLAG_KEY);
        av_packet_unref(packet);
    }
    av_packet_free(&packet);
    return runs.longest();
}

int keyframeDistance(const QString& path)
{
    AvInterrupt interrupt;
    interrupt.allow(longestLook);
    const auto input = AvInput::open(QUrl::fromLocalFile(path), interrupt);
    if (!input) return 0;
    const int indexed = distanceByIndex(input.value()->video());
    return indexed > 0 ? indexed : distanceByPackets(*input.value());
}

} // namespace kestro
