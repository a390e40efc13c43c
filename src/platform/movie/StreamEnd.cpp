#include "platform/movie/StreamEnd.h"

namespace kestro {

// The last frame of a movie begins this much before its end, at most.
static constexpr double longestPicture = 0.5;
// Bytes are not spread evenly over the time.
static constexpr double leastShareOfBytes = 0.5;

bool brokeOff(double position, double duration, StreamBytes bytes)
{
    if (duration - position < longestPicture || bytes.length <= 0) return false;
    const double missingTime = (duration - position) / duration;
    const double missingBytes = (bytes.length - bytes.read) / bytes.length;
    return missingBytes > leastShareOfBytes * missingTime;
}

} // namespace kestro
