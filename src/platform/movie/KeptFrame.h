#pragma once

#include "platform/movie/FrameDecoder.h"

#include <atomic>
#include <cstddef>
#include <memory>

namespace kestro {

/// Counts the bytes of one movie's decoded frames that are kept, and how many there may be. Shared by those
/// who decode them and those who show them; any thread.
class FrameMemory final {
public:
    explicit FrameMemory(std::size_t most)
        : m_most(most)
    {
    }

    [[nodiscard]] std::size_t most() const { return m_most; }
    [[nodiscard]] std::size_t used() const { return m_used; }
    /// The most that was ever used.
    [[nodiscard]] std::size_t peak() const { return m_peak; }

    void add(std::size_t bytes);
    void remove(std::size_t bytes) { m_used -= bytes; }

private:
    const std::size_t m_most;
    std::atomic<std::size_t> m_used{0};
    std::atomic<std::size_t> m_peak{0};
};

/// A decoded frame that is kept until it is due, and counted as long. Owned by whoever holds it; one thread
/// at a time. Tested by ReverseDecoderTest.
class KeptFrame final {
public:
    /// `frame` of `seconds` into the movie, to be turned by `rotation` degrees clockwise.
    KeptFrame(Frame frame, double seconds, int rotation, std::shared_ptr<FrameMemory> memory);
    ~KeptFrame();
    KeptFrame(KeptFrame&&) = default;
    KeptFrame& operator=(KeptFrame&& other) noexcept;

    [[nodiscard]] const AVFrame& frame() const { return *m_frame; }
    [[nodiscard]] double seconds() const { return m_seconds; }
    [[nodiscard]] int rotation() const { return m_rotation; }

private:
    Frame m_frame;
    double m_seconds = 0;
    int m_rotation = 0;
    std::size_t m_bytes = 0;
    std::shared_ptr<FrameMemory> m_memory;
};

/// Bytes that keeping `frame` takes.
[[nodiscard]] std::size_t bytesOf(const AVFrame& frame);

} // namespace kestro
