#include "engine/MovieTurn.h"

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/movie/QTMovie.h"
#include "platform/saver/ScreenSaverFunctions.h"

#include <algorithm>

namespace kestro {

namespace {

constexpr double longestTick = 1;      ///< seconds
constexpr double roundingSlack = 1e-6; ///< of many ticks

} // namespace

MovieTurn::MovieTurn(const MovieOptions& options, Random& random, const Clock& clock)
    : m_longest(options.longestSeconds)
    , m_startsAnywhere(options.startsAnywhere)
    , m_random(random)
    , m_clock(clock)
{
}

void MovieTurn::begin()
{
    m_played = 0;
    m_lastTick.reset();
    m_isPlaced = false;
}

// So early that the whole turn is left of it, or half of the movie where a turn has no end.
void MovieTurn::place(QTMovie& movie, bool isResumed)
{
    if (m_isPlaced || movie.state() != QTMovie::State::Loaded) return;
    m_isPlaced = true;
    if (!m_startsAnywhere || isResumed) return;
    const int duration = GetMovieDuration(movie);
    const double turn = m_longest > 0 ? m_longest * movieTimeScale : duration / 2.0;
    const int latest = static_cast<int>(std::max(0.0, duration - turn));
    if (latest > 0) SetMovieTimeValue(movie, SSRandomIntBetween(m_random, 0, latest));
}

void MovieTurn::tick()
{
    const double now = m_clock.now();
    m_played += std::min(now - m_lastTick.value_or(now), longestTick);
    m_lastTick = now;
}

std::optional<double> MovieTurn::secondsLeft() const
{
    if (!(m_longest > 0)) return {};
    const double left = m_longest - m_played;
    return left > roundingSlack ? left : 0;
}

} // namespace kestro
