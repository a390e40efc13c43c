#pragma once

#include "platform/display/view/Picture.h"

#include <memory>
#include <optional>

namespace kestro {

class CaptureThread;
class Clock;
class StillMovie;

/// The still of a picture that a movie has yet to show: asked for some time ahead, so that it is there once
/// the movie goes elsewhere and leaves it behind. Nobody waits for one that is late. Owned by the engine.
/// Main thread; times in seconds.
class StillAhead final {
public:
    /// A picture of a movie.
    struct Moment {
        std::shared_ptr<StillMovie> copy; ///< null: no still can be had
        double seconds = 0;               ///< into the movie
        double duration = 0;              ///< of the movie; 0 while unknown
    };

    /// Both outlive it.
    StillAhead(CaptureThread& captures, const Clock& clock);
    ~StillAhead();

    /// How long before its picture shows a still is to be asked for: longer where the last one took long.
    [[nodiscard]] double lead();
    /// Asks for the still of that picture, unless that was done, or another still is being taken.
    void ask(const Moment& moment);
    /// Hands over the newest still of that movie, if it is hardly off the moment; else a null picture, with a
    /// log line where one was asked for.
    [[nodiscard]] Picture take(const Moment& moment);

private:
    struct Answer;
    struct Request {
        std::weak_ptr<StillMovie> copy; ///< a still is no reason to keep a movie open
        double seconds = 0;
        double askedAt = 0;
        std::shared_ptr<Answer> answer;
    };
    struct Ready {
        std::weak_ptr<StillMovie> copy;
        double seconds = 0;
        Picture picture;
    };

    void lookForAnswer();

    CaptureThread& m_captures;
    const Clock& m_clock;
    std::optional<Request> m_pending; ///< asked for, and not answered yet
    std::optional<Ready> m_ready;     ///< the newest answer, a null picture too
    double m_lastTook = 0;
};

} // namespace kestro
