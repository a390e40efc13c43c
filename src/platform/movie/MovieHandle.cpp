// Tested by HandleFunctionsTest.

#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

#include <algorithm>
#include <limits>

namespace kestro {

static std::int32_t handleTime(MovieTime time)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(time.timeValue, Limits::min(), Limits::max()));
}

std::int32_t GetMovieTime(const QTMovie& movie)
{
    return handleTime(movie.currentTime());
}

void SetMovieTimeValue(QTMovie& movie, std::int32_t value)
{
    movie.setCurrentTime({value, movieTimeScale});
}

std::int32_t GetMovieDuration(const QTMovie& movie)
{
    return handleTime(movie.duration());
}

void SetMovieBox(StillMovie& movie, MovieBox box)
{
    movie.setStillSize(box.right - box.left, box.bottom - box.top);
}

Picture GetMoviePict(StillMovie& movie, std::int32_t value, std::stop_token stop)
{
    return movie.still({value, movieTimeScale}, std::move(stop));
}

} // namespace kestro
