#pragma once

#include "platform/display/view/Picture.h"
#include "platform/movie/MovieTime.h"

#include <stop_token>

namespace kestro {

/// A copy of a movie that serves for stills alone: it never plays, and opens its own way to the movie only
/// for the first still. Made by QTMovie::copyForStills(). Shared by the engine and the capture thread. Any
/// one thread at a time; may be let go of on any.
class StillMovie {
public:
    virtual ~StillMovie() = default;

    /// Pixels of the frames that still() answers; the natural size until set. Main thread, also while
    /// another takes a still.
    virtual void setStillSize(int width, int height) = 0;
    /// The frame at `time` (the last one when past the end), scaled to the still size. A null picture when
    /// it cannot be had. It may wait for a disk or a server, until the network's time limit or until `stop`,
    /// so it is not for the main thread.
    [[nodiscard]] virtual Picture still(MovieTime time, std::stop_token stop = {}) = 0;
};

} // namespace kestro
