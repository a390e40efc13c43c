#include "platform/movie/Playhead.h"

#include <algorithm>
#include <cmath>

namespace kestro {

Playhead Playhead::after(double elapsed, double duration, EndMode mode) const
{
    if (!running) return *this;
    if (mode == EndMode::Stop) return stopping(elapsed, duration);
    if (duration <= 0) return *this;
    return mode == EndMode::Loop ? looping(elapsed, duration) : turning(elapsed, duration);
}

Playhead Playhead::stopping(double elapsed, double duration) const
{
    const double there = backwards ? position - elapsed : position + elapsed;
    const bool ends = backwards ? there <= 0 : there >= duration;
    return {std::clamp(there, 0.0, duration), backwards && !ends, !ends, ends};
}

Playhead Playhead::looping(double elapsed, double duration) const
{
    if (backwards && elapsed < position) return {position - elapsed, true, true, false};
    // A loop goes forward: what still runs backwards turns at the beginning.
    const double run = backwards ? elapsed - position : position + elapsed;
    return {std::fmod(run, duration), false, true, false};
}

Playhead Playhead::turning(double elapsed, double duration) const
{
    const double start = backwards ? 2 * duration - position : position;
    const double phase = std::fmod(start + elapsed, 2 * duration);
    if (phase < duration) return {phase, false, true, false};
    return {2 * duration - phase, true, true, false};
}

} // namespace kestro
