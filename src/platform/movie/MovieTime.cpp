#include "platform/movie/MovieTime.h"

#include <cmath>

namespace kestro {

// So that a span that is a whole number of units but for a floating point error is not rounded up by one.
constexpr double roundingSlack = 1e-4;

MovieTime movieTimeFromSeconds(double seconds)
{
    if (!std::isfinite(seconds) || seconds <= 0) return {};
    const double units = std::ceil(seconds * movieTimeScale - roundingSlack);
    constexpr double most = 9.0e18;
    return {static_cast<std::int64_t>(std::fmin(units, most)), movieTimeScale};
}

double secondsFromMovieTime(MovieTime time)
{
    if (time.timeScale <= 0) return 0;
    return static_cast<double>(time.timeValue) / time.timeScale;
}

} // namespace kestro
