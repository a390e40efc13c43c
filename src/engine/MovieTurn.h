#pragma once

#include "settings/MovieOptions.h"

#include <optional>

namespace kestro {

class Clock;
class QTMovie;
class Random;

/// How much of each movie is played, where that was chosen: where it begins, and for how long it plays before
/// it is another one's turn. While nothing was chosen it does nothing. Owned by the engine. Main thread.
class MovieTurn final {
public:
    /// `random` and `clock` outlive it.
    MovieTurn(const MovieOptions& options, Random& random, const Clock& clock);

    /// Another movie is there, which has not played yet.
    void begin();
    /// Moves the movie to where it is to begin, once it is loaded, and once only. With `isResumed` it stands
    /// there already.
    void place(QTMovie& movie, bool isResumed);
    /// The movie plays, at this tick. What lies between two ticks counts for a moment at most, so that a
    /// saver that rested goes on where it was.
    void tick();
    /// Seconds that are left of the turn; nothing where it has no end of its own.
    [[nodiscard]] std::optional<double> secondsLeft() const;
    [[nodiscard]] bool isOver() const { return secondsLeft() == 0.0; }
    /// The same movie has another turn, where there is no other after all; it stays where it is.
    void renew() { m_played = 0; }

private:
    double m_longest;
    bool m_startsAnywhere;
    Random& m_random;
    const Clock& m_clock;
    double m_played = 0; ///< seconds of this turn
    std::optional<double> m_lastTick;
    bool m_isPlaced = false;
};

} // namespace kestro
