#include "engine/MovieTurn.h"

#include "engine/EffectsTest.h"
#include "platform/movie/QTMovie.h"

#include <algorithm>

namespace kestro {

namespace {

class MovieTurnTest : public EngineTest {
protected:
    MovieTurn turn(double longestSeconds, bool startsAnywhere = false)
    {
        MovieOptions chosen;
        chosen.longestSeconds = longestSeconds;
        chosen.startsAnywhere = startsAnywhere;
        return {chosen, random, clock};
    }
    /// Where a movie of `seconds` begins, in each of many turns.
    std::vector<double> places(double longestSeconds, double seconds, bool isResumed = false)
    {
        auto chosen = turn(longestSeconds, true);
        std::vector<double> found;
        for (int i = 0; i < 200; ++i) {
            MemoryMovie movie(urlOf("a.mov"), {.seconds = seconds}, clock);
            chosen.begin();
            chosen.place(movie, isResumed);
            found.push_back(GetMovieTime(movie) / 600.0);
        }
        std::sort(found.begin(), found.end());
        return found;
    }
};

/// Three movies that fill two minutes each, which the saver plays full screen.
class MySaverTurnTest : public EngineTest {
protected:
    MySaverTurnTest() { setGoodPlaylist({"a.mov", "b.mov", "c.mov"}, 120); }

    MySaver& started()
    {
        auto& saver = makeSaver();
        saver.startAnimation();
        tick(saver);
        return saver;
    }
    static double timeOf(const MySaver& saver) { return double(saver.snapshot().movie->time) / 600; }
};

class TurnEffectsTest : public EffectsTest {};

} // namespace

TEST_F(MovieTurnTest, turn_hasNoEnd_whereNoneWasChosen)
{
    auto endless = turn(0);
    endless.begin();
    for (int i = 0; i < 100; ++i) {
        clock.advance(1);
        endless.tick();
    }
    EXPECT_FALSE(endless.isOver());
    EXPECT_EQ(endless.secondsLeft(), std::nullopt);
}

TEST_F(MovieTurnTest, turn_isOver_onceItsTimeWasPlayed)
{
    auto chosen = turn(2);
    chosen.begin();
    chosen.tick();
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(chosen.isOver()) << i;
        clock.advance(0.75);
        chosen.tick();
    }
    EXPECT_TRUE(chosen.isOver());
    chosen.begin();
    EXPECT_EQ(chosen.secondsLeft(), 2);
}

TEST_F(MovieTurnTest, restBetweenTwoTicks_isNotPlayed)
{
    auto chosen = turn(10);
    chosen.begin();
    chosen.tick();
    clock.advance(3600);
    chosen.tick();
    EXPECT_EQ(chosen.secondsLeft(), 9);
}

TEST_F(MovieTurnTest, place_leavesTheWholeTurn)
{
    const auto found = places(60, 300);
    EXPECT_GE(found.front(), 0);
    EXPECT_LT(found.front(), 12);
    EXPECT_GT(found.back(), 228);
    EXPECT_LE(found.back(), 240);
}

TEST_F(MovieTurnTest, place_isInTheFirstHalf_whereTheTurnHasNoEnd)
{
    const auto found = places(0, 300);
    EXPECT_LT(found.front(), 8);
    EXPECT_GT(found.back(), 142);
    EXPECT_LE(found.back(), 150);
}

TEST_F(MovieTurnTest, place_isTheBeginning_ofAMovieThatIsShorterThanTheTurn)
{
    EXPECT_EQ(places(60, 59).back(), 0);
    EXPECT_EQ(places(0, 0).back(), 0);
}

TEST_F(MovieTurnTest, place_staysWhereTheMovieWasResumed)
{
    EXPECT_EQ(places(60, 300, true).back(), 0);
}

TEST_F(MovieTurnTest, place_isChosenOnce_whenTheMovieIsLoaded)
{
    auto chosen = turn(10, true);
    chosen.begin();
    MemoryMovie movie(urlOf("a.mov"), {.seconds = 300, .loadsAfter = 1}, clock);
    chosen.place(movie, false);
    clock.advance(1.5);
    chosen.place(movie, false);
    const int first = GetMovieTime(movie);
    EXPECT_GT(first, 0);
    chosen.place(movie, false);
    EXPECT_EQ(GetMovieTime(movie), first);
}

TEST_F(MySaverTurnTest, nextMovie_comesAfterTheLongestTime)
{
    movieOptions.longestSeconds = 5;
    auto& saver = started();
    tickFor(saver, 4.5);
    EXPECT_EQ(playing(saver), "a.mov");
    tickFor(saver, 1);
    EXPECT_EQ(playing(saver), "b.mov");
    tickFor(saver, 5);
    EXPECT_EQ(playing(saver), "c.mov");
    tickFor(saver, 5);
    EXPECT_EQ(playing(saver), "a.mov");
}

TEST_F(MySaverTurnTest, shorterMovie_playsToItsEnd)
{
    describe("a.mov", {.seconds = 2});
    movieOptions.longestSeconds = 5;
    auto& saver = started();
    tickFor(saver, 1.8);
    EXPECT_EQ(playing(saver), "a.mov");
    tickFor(saver, 0.5);
    EXPECT_EQ(playing(saver), "b.mov");
    tickFor(saver, 4.5);
    EXPECT_EQ(playing(saver), "b.mov");
}

TEST_F(MySaverTurnTest, movieThatIsAlone_goesOn)
{
    setGoodPlaylist({"a.mov"}, 120);
    movieOptions.longestSeconds = 5;
    auto& saver = started();
    tickFor(saver, 20);
    EXPECT_NEAR(timeOf(saver), 20, 1);
}

TEST_F(MySaverTurnTest, movie_goesOn_whereNoOtherCanBeOpened)
{
    setPlaylist({"a.mov", "http://m/missing.mov"});
    movieOptions.longestSeconds = 5;
    movieOptions.startsAnywhere = false;
    auto& saver = started();
    tickFor(saver, 12);
    EXPECT_EQ(playing(saver), "a.mov");
}

TEST_F(TurnEffectsTest, movie_isLeftAsAtItsEnd_withAPictureThatFades)
{
    setMode("0");
    set("Interval", "1000");
    setGoodPlaylist({"a.mov", "b.mov"}, 120);
    movieOptions.longestSeconds = 5;
    auto& saver = started();
    settledFor(saver, 4.9);
    EXPECT_FALSE(saver.snapshot().isFading);
    settledFor(saver, 0.4);
    ASSERT_EQ(playing(saver), "b.mov");
    EXPECT_TRUE(saver.snapshot().isFading);
    EXPECT_TRUE(hasPictureLeft());
    EXPECT_EQ(missing(), 0);
}

TEST_F(MySaverTurnTest, movie_beginsSomewhere_whereThatWasChosen)
{
    movieOptions.startsAnywhere = true;
    movieOptions.longestSeconds = 5;
    auto& saver = started();
    const double first = timeOf(saver);
    EXPECT_GT(first, 1);
    tickFor(saver, 6);
    ASSERT_EQ(playing(saver), "b.mov");
    EXPECT_GT(timeOf(saver), 2);
    EXPECT_NE(timeOf(saver), first);
}

TEST_F(MySaverTurnTest, movie_beginsWhereTheLastRunStopped_ratherThanSomewhere)
{
    movieOptions.startsAnywhere = true;
    set("Continue", "1");
    store.setDefaults({{"LastMovie", "b.mov"}, {"LastPos", "1200"}});
    auto& saver = started();
    ASSERT_EQ(playing(saver), "b.mov");
    EXPECT_NEAR(timeOf(saver), 2, 0.2);
}

TEST_F(MySaverTurnTest, movies_beginAtTheBeginningAndPlayToTheEnd_whereNothingWasChosen)
{
    auto& saver = started();
    EXPECT_LT(timeOf(saver), 0.2);
    tickFor(saver, 119);
    EXPECT_EQ(playing(saver), "a.mov");
}

} // namespace kestro
