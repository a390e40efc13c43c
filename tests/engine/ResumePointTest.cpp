#include "engine/ResumePoint.h"

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"

namespace kestro {

namespace {

class ResumePointTest : public EngineTest {
protected:
    ResumePointTest()
    {
        set("Continue", "1");
        store.setDefaults({{"LastMovie", "b.mov"}, {"LastPos", "1234"}});
    }

    Settings settings{store, {}};
    ResumePoint point{settings, store};
};

} // namespace

TEST_F(ResumePointTest, movieName_isTheStoredOne_untilItIsOver)
{
    EXPECT_EQ(point.movieName(), "b.mov");
    point.end();
    EXPECT_EQ(point.movieName(), std::nullopt);
}

TEST_F(ResumePointTest, movieName_isNone_unlessRunsContinue)
{
    set("Continue", "0");
    EXPECT_EQ(point.movieName(), std::nullopt);
}

TEST_F(ResumePointTest, goTo_movesToTheStoredPosition_once)
{
    MemoryMovie movie(urlOf("b.mov"), {.seconds = 10}, clock);
    point.goTo(movie);
    EXPECT_EQ(GetMovieTime(movie), 1234);
    SetMovieTimeValue(movie, 0);
    point.goTo(movie);
    EXPECT_EQ(GetMovieTime(movie), 0);
}

TEST_F(ResumePointTest, goTo_leavesAMovieAtItsStart_whenThePositionIsPastItsEnd)
{
    for (const auto& [stored, expected] : std::vector<std::pair<QString, int>>{{"6001", 0}, {"6000", 6000}}) {
        store.setDefaultsForKey(stored, "LastPos");
        ResumePoint each(settings, store);
        MemoryMovie movie(urlOf("b.mov"), {.seconds = 10}, clock);
        each.goTo(movie);
        EXPECT_EQ(GetMovieTime(movie), expected);
    }
}

TEST_F(ResumePointTest, goTo_waitsUntilTheMovieIsLoaded_andKeepsWhatIsStored)
{
    MemoryMovie movie(urlOf("far.mov"), {.seconds = 10, .loadsAfter = 3}, clock);
    point.goTo(movie);
    point.store(movie);
    EXPECT_EQ(store.defaultsPlist()["LastMovie"], "b.mov");
    EXPECT_EQ(store.defaultsPlist()["LastPos"], "1234");
    clock.advance(3);
    point.goTo(movie);
    EXPECT_EQ(GetMovieTime(movie), 1234);
    point.store(movie);
    EXPECT_EQ(store.defaultsPlist()["LastMovie"], "far.mov");
}

} // namespace kestro
