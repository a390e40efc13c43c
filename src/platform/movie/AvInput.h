#pragma once

#include "platform/base/Result.h"
#include "platform/movie/MovieFault.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <stop_token>

struct AVFormatContext;
struct AVStream;

class QUrl;

namespace kestro {

/// Ends what libavformat does when asked to, or when its time is up. Shared by the thread that reads and the
/// one that ends it.
class AvInterrupt final {
public:
    /// From now on reading may take `span`, then it ends; or when `stop` is requested. By the thread that
    /// reads.
    void allow(std::chrono::milliseconds span, std::stop_token stop = {});
    /// Ends what is being read, and whatever is asked for later. Any thread.
    void interrupt() { m_interrupted = true; }
    [[nodiscard]] bool isDue() const;

private:
    std::atomic<bool> m_interrupted{false};
    std::atomic<std::chrono::steady_clock::time_point> m_deadline{};
    std::stop_token m_stop;
};

/// A movie file or address opened with libavformat, its streams known. Only ever one with a video:
/// sound alone, cover art, still images and playlists are refused, and what is too large (checkSize()), with
/// a line in the log. One thread at a time. Tested by MovieProbeTest.
class AvInput final {
public:
    /// Opens `url` (file, http or https). Nothing outside that scheme is followed. `interrupt` must outlive
    /// the input.
    [[nodiscard]] static Result<std::unique_ptr<AvInput>, MovieFault> open(const QUrl& url,
                                                                           AvInterrupt& interrupt);
    ~AvInput();
    AvInput(const AvInput&) = delete;
    AvInput& operator=(const AvInput&) = delete;

    [[nodiscard]] AVFormatContext* context() const { return m_context; }
    /// The video.
    [[nodiscard]] AVStream* video() const { return m_video; }
    /// Seconds that `pts` of the video lies after the movie's start.
    [[nodiscard]] double secondsOf(std::int64_t pts) const;
    /// The same backwards: the time stamp that lies `seconds` after the start.
    [[nodiscard]] std::int64_t ptsAt(double seconds) const;

private:
    AvInput() = default;
    [[nodiscard]] Result<void, MovieFault> openStreams(const QUrl& url, AvInterrupt& interrupt);
    [[nodiscard]] Result<void, MovieFault> openContainer(const QUrl& url, AvInterrupt& interrupt);
    [[nodiscard]] Result<void, MovieFault> chooseVideo();

    AVFormatContext* m_context = nullptr;
    AVStream* m_video = nullptr;
};

/// The file name of `url` as libavformat and mpv take it: a path, or the encoded address.
[[nodiscard]] QByteArray mediaSource(const QUrl& url);

/// The names of the containers that may hold a movie, as libavformat's option takes them.
[[nodiscard]] QByteArray movieContainers(bool local);

/// The protocols that opening a movie may use, as libavformat's option takes them.
[[nodiscard]] QByteArray movieProtocols(bool local);

} // namespace kestro
