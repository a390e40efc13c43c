#pragma once

#include "engine/MoviePick.h"
#include "settings/PlayableSearch.h"

#include <functional>
#include <memory>

namespace kestro {

/// One search for something to play and what it is for: at a start first for an entry that seems playable,
/// then, from there, for one that opens. Owned by the saver; destroying it gives the search up. Main thread.
/// Tested by MySaverFailuresTest.
class MovieSearch final {
public:
    enum class Purpose {
        Start,    ///< the first movie of a saver
        Restart,  ///< the first with new settings
        Next,     ///< the one after a movie that ended
        Previous, ///< one that was shown before
        Replace,  ///< the one after a movie that broke off
        Retry,    ///< anything, after a search that found nothing
    };
    using MakeFirst = std::function<std::unique_ptr<PlayableSearch>()>;
    using MakePick = std::function<std::unique_ptr<MoviePick>()>;

    /// `now` is the clock's time, in seconds. What `makeFirst` makes, where there is one, has to find an
    /// entry before `makePick` makes the pick; `found` is told its index. Both are made as late as can be.
    MovieSearch(Purpose purpose, double now, MakeFirst makeFirst, std::function<void(int)> found,
                MakePick makePick);

    [[nodiscard]] Purpose purpose() const { return m_purpose; }
    /// Whether it takes so long that a person would take a black screen for a broken one.
    [[nodiscard]] bool isLong(double now) const { return now - m_began > longestBlackness; }
    /// Whether it is about to begin, and may wait for what folders hold: not for ever.
    [[nodiscard]] bool mayWait(double now) const { return m_makeFirst && now - m_began < longestWait; }
    /// Goes on with the search as far as it can go now.
    [[nodiscard]] MoviePick::State step();
    [[nodiscard]] MovieContent takeContent() { return m_pick ? m_pick->takeContent() : MovieContent{}; }

private:
    static constexpr double longestBlackness = 1; ///< seconds
    static constexpr double longestWait = 2;      ///< seconds

    Purpose m_purpose;
    double m_began;
    MakeFirst m_makeFirst; ///< until it has made it
    std::unique_ptr<PlayableSearch> m_first;
    std::function<void(int)> m_found;
    MakePick m_makePick;
    std::unique_ptr<MoviePick> m_pick;
};

} // namespace kestro
