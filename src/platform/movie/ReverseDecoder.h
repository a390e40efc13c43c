#pragma once

#include "platform/movie/FrameShrinker.h"
#include "platform/movie/KeptFrame.h"

#include <QSize>
#include <QUrl>

#include <chrono>
#include <deque>
#include <memory>
#include <optional>
#include <stop_token>

namespace kestro {

/// Decodes a movie from a time back to its beginning, a stretch at a time: from the keyframe before, keeping
/// the last frames that there is room for, so a group of frames larger than that is decoded once for each
/// stretch of it. Every frame comes, exactly once. Owned by BackwardsWorker; one thread at a time; seconds.
class ReverseDecoder final {
public:
    /// What it keeps is counted by `memory`. Nothing is opened yet. Each read may wait `longestRead`.
    ReverseDecoder(QUrl url, std::shared_ptr<FrameMemory> memory, std::chrono::milliseconds longestRead);
    ~ReverseDecoder();

    /// The frame that shows at `seconds` comes next, at or past the end the last one.
    void startAt(double seconds);

    /// Pixels that frames are drawn with, upright; those that come from now on are kept no larger. An empty
    /// size stands for the natural one.
    void setDrawnSize(QSize size) { m_drawn = size; }

    using Frames = std::deque<KeptFrame>;
    /// The next stretch, the earliest frame first; empty once the beginning was reached. Ends, with a
    /// reason, when the movie cannot be read or sought, or on `stop`. One frame is kept even where there is
    /// no room.
    [[nodiscard]] Result<Frames> next(const std::stop_token& stop);

private:
    /// A keyframe and the place that a seek to it is sent to.
    struct Group {
        std::int64_t stamp = 0;        ///< of the keyframe
        std::int64_t decodingTime = 0; ///< of the keyframe
        std::int64_t seekStamp = 0;
    };

    [[nodiscard]] Result<void> open();
    void begin();
    [[nodiscard]] std::optional<Group> readKeyframe();
    [[nodiscard]] Result<void> goToGroup();
    [[nodiscard]] std::int64_t firstTry() const;
    [[nodiscard]] Result<Frames> decodeStretch();
    [[nodiscard]] Result<Frames> decodeGroup(std::int64_t from);
    void keep(Frames& frames, Frame frame);
    void moveCursor(const Frames& frames);
    [[nodiscard]] std::int64_t worthwhileFrom() const;
    void extendTime() { m_interrupt.allow(m_longestRead, m_stop); }
    [[nodiscard]] Result<void> checkEnd() const;

    const QUrl m_url;
    const std::shared_ptr<FrameMemory> m_memory;
    const std::chrono::milliseconds m_longestRead;
    std::stop_token m_stop;
    AvInterrupt m_interrupt;
    std::unique_ptr<FrameDecoder> m_decoder;
    FrameShrinker m_shrinker;
    QSize m_drawn;
    double m_start = 0;
    Group m_first;                ///< the movie's first keyframe
    std::optional<Group> m_group; ///< the one that was decoded last
    std::int64_t m_cursor = 0;    ///< frames of before this stamp are still to come
    std::size_t m_frameBytes = 0;
    bool m_dropped = false; ///< the stretch had no room for the whole group
    bool m_begun = false;   ///< the cursor is of the start that was asked for last
};

} // namespace kestro
