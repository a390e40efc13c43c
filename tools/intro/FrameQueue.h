#pragma once

#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <vector>

namespace kestro::intro {

/// Hands out frame numbers to the drawing threads, and writes their frames to a stream in order. Any thread.
class FrameQueue final {
public:
    /// The frames from `first` up to, without, `end`.
    FrameQueue(std::FILE* stream, int first, int end)
        : m_stream(stream)
        , m_next(first)
        , m_turn(first)
        , m_end(end)
    {
    }

    /// The next frame to draw; -1 when there is none, or the stream no longer takes any.
    [[nodiscard]] int next();
    /// Waits until every frame before `number` is written, then writes its `bytes`.
    void write(int number, const std::vector<std::uint8_t>& bytes);
    [[nodiscard]] bool hasFailed();

private:
    std::FILE* m_stream;
    std::mutex m_mutex;
    std::condition_variable m_turned;
    int m_next;
    int m_turn;
    int m_end;
    bool m_failed = false;
};

} // namespace kestro::intro
