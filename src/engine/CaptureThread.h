#pragma once

#include "platform/display/view/Picture.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <thread>

namespace kestro {

class StillMovie;

/// Takes stills on a thread of its own, one at a time: each takes as long as a disk or a server wants, and
/// nobody waits for it any longer than a moment. One that does not let itself be given up is left to itself,
/// and what comes of it is dropped. Owned by the engine. Main thread, but for what is told on the other.
class CaptureThread final {
public:
    /// A still to take: of `copy` (never null) at movie time `time`.
    struct Still {
        std::shared_ptr<StillMovie> copy;
        std::int32_t time = 0;
    };
    /// Told of the still on its thread: a null picture when it could not be had. Not told once it was given
    /// up.
    using Taken = std::function<void(const Picture&)>;
    /// Runs something on a new thread; throws std::system_error when there is none to be had.
    using Spawn = std::function<void(std::function<void()>)>;

    explicit CaptureThread(Spawn spawn = runDetached);
    /// Gives up a still that is being taken.
    ~CaptureThread();
    CaptureThread(const CaptureThread&) = delete;
    CaptureThread& operator=(const CaptureThread&) = delete;

    /// Starts taking a still. False, and nothing happens, while another is being taken or when there is no
    /// thread to be had.
    bool start(Still still, Taken taken);
    [[nodiscard]] bool isBusy() const;
    /// Returns once no still is being taken; one that takes longer than a moment is given up.
    void wait();
    /// Gives up a still that is being taken.
    void cancel();

private:
    struct Capture;

    static void runDetached(std::function<void()> run);

    Spawn m_spawn;
    std::shared_ptr<Capture> m_capture; ///< the last one; null once it was given up
};

/// A still of `copy` at `time`, as it comes; a null picture, with a log line, when there is none. Any thread.
[[nodiscard]] Picture movieImage(StillMovie& copy, std::int32_t time, std::stop_token stop = {});

} // namespace kestro
