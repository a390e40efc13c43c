// Movies that play at times of the day: which of them are passed over, and until when.

#include "engine/EngineTest.h"
#include "engine/ShuffleRecord.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

namespace kestro {

namespace {

class MySaverTimesTest : public EngineTest {
protected:
    MySaverTimesTest() { setHour(12); }

    MySaver& startSaver()
    {
        auto& saver = makeSaver();
        saver.startAnimation();
        tick(saver, 2);
        return saver;
    }
    /// The movies of so many turns, the one that plays first.
    QStringList turns(MySaver& saver, int count)
    {
        QStringList names{playing(saver)};
        while (names.size() < count) {
            tickFor(saver, 10.2);
            names.append(playing(saver));
        }
        return names;
    }
    void setHour(int hour) { clock.setWallTime({QDate(2026, 11, 22), QTime(hour, 0)}); }
};

} // namespace

TEST_F(MySaverTimesTest, movieWhoseTimeItIsNot_isPassedOver_inOrder)
{
    setGoodPlaylist({"a.mov", "dark.mov", "b.mov"});
    mark("night", {"dark.mov"});
    EXPECT_EQ(turns(startSaver(), 5), (QStringList{"a.mov", "b.mov", "a.mov", "b.mov", "a.mov"}));
}

TEST_F(MySaverTimesTest, movieWhoseTimeItIs_joinsTheOthers_inOrder)
{
    setGoodPlaylist({"a.mov", "dark.mov", "b.mov"});
    mark("night", {"dark.mov"});
    setHour(23);
    EXPECT_EQ(turns(startSaver(), 4), (QStringList{"a.mov", "dark.mov", "b.mov", "a.mov"}));
}

TEST_F(MySaverTimesTest, movieThatPlays_playsToItsEnd_whenItsTimeIsOver)
{
    setGoodPlaylist({"bright.mov", "dark.mov"});
    mark("day", {"bright.mov"});
    mark("night", {"dark.mov"});
    auto& saver = startSaver();
    setHour(23);
    tickFor(saver, 9);
    EXPECT_EQ(playing(saver), "bright.mov");
    tickFor(saver, 1.2);
    EXPECT_EQ(playing(saver), "dark.mov");
}

TEST_F(MySaverTimesTest, allMoviesCount_whereNoneIsInItsTime)
{
    setGoodPlaylist({"a.mov", "b.mov"});
    mark("night", {"a.mov", "b.mov"});
    EXPECT_EQ(turns(startSaver(), 3), (QStringList{"a.mov", "b.mov", "a.mov"}));
}

TEST_F(MySaverTimesTest, moviesOfOtherTimesCount_whereThoseInTimeCannotBePlayed)
{
    setPlaylist({"gone.mov", "dark.mov"});
    describe("dark.mov", {.seconds = 10});
    mark("night", {"dark.mov"});
    EXPECT_EQ(playing(startSaver()), "dark.mov");
}

TEST_F(MySaverTimesTest, folder_saysItOfAllItsMovies)
{
    QTemporaryDir films;
    setPlaylist({"a.mov", QStringLiteral("folder://") + films.path() + "?when=night"});
    describe("a.mov", {.seconds = 10});
    for (const char* name : {"b.mov", "c.mov"})
        movies.describe(QUrl::fromLocalFile(films.filePath(name)).toString(), {.seconds = 10});
    folders.fill(films.path(), {"b.mov", "c.mov"});
    EXPECT_EQ(turns(startSaver(), 3), (QStringList{"a.mov", "a.mov", "a.mov"}));
    EXPECT_EQ(folders.followed.front().path, films.path());
}

TEST_F(MySaverTimesTest, newestTrailers_haveTheTimeOfTheirEntry)
{
    setPlaylist({"a.mov", "auto://LatestTrailers/2/480"});
    trailers.trailers = {urlOf("t1.mov"), urlOf("t2.mov")};
    for (const char* name : {"a.mov", "t1.mov", "t2.mov"})
        describe(name, {.seconds = 10});
    mark("night", {"auto://LatestTrailers/2/480"});
    auto& saver = startSaver();
    EXPECT_EQ(turns(saver, 2), (QStringList{"a.mov", "a.mov"}));
}

TEST_F(MySaverTimesTest, movieThatIsAloneInItsTime_plays_untilAnotherOnesTimeComes)
{
    setGoodPlaylist({"bright.mov", "dark.mov"});
    mark("day", {"bright.mov"});
    mark("night", {"dark.mov"});
    auto& saver = startSaver();
    tickFor(saver, 300);
    const auto opened = movies.tried().size();
    EXPECT_EQ(playing(saver), "bright.mov");
    tickFor(saver, 300);
    EXPECT_EQ(movies.tried().size(), opened) << "it loops, and is not opened again";
    setHour(23);
    tickFor(saver, 75);
    EXPECT_EQ(playing(saver), "dark.mov");
}

TEST_F(MySaverTimesTest, randomOrder_drawsAmongThoseInTheirTime)
{
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov", "dark.mov", "b.mov", "late.mov", "c.mov"});
    mark("night", {"dark.mov"});
    mark("22-5", {"late.mov"});
    auto& saver = startSaver();
    auto byDay = turns(saver, 9);
    EXPECT_FALSE(byDay.contains("dark.mov"));
    EXPECT_FALSE(byDay.contains("late.mov"));
    EXPECT_EQ(QSet<QString>(byDay.begin(), byDay.end()).size(), 3);
    setHour(23);
    auto byNight = turns(saver, 3).mid(1);
    byNight.sort();
    EXPECT_EQ(byNight, (QStringList{"dark.mov", "late.mov"})) << "those of the day came in this cycle";
}

TEST_F(MySaverTimesTest, randomOrder_drawsFromABagThatHoldsOtherTimesAlone)
{
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov", "dark.mov"});
    mark("night", {"dark.mov"});
    EXPECT_EQ(turns(startSaver(), 4), (QStringList{"a.mov", "a.mov", "a.mov", "a.mov"}));
}

TEST_F(MySaverTimesTest, shuffleThatRemembers_drawsAmongThoseInTheirTime_andKeepsTheOthersForLater)
{
    ShuffleRecord record(home.filePath("shuffle"));
    shuffle = &record;
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov", "dark.mov", "b.mov"});
    mark("night", {"dark.mov"});
    auto& saver = startSaver();
    EXPECT_FALSE(turns(saver, 6).contains("dark.mov"));
    EXPECT_TRUE(record.contents().failures.empty());
    setHour(23);
    tickFor(saver, 10.2);
    EXPECT_EQ(playing(saver), "dark.mov") << "it alone was not seen yet";
    setHour(12);
    EXPECT_FALSE(turns(saver, 5).mid(1).contains("dark.mov"));
    EXPECT_TRUE(record.contents().seen.contains(ShuffleRecord::markOf(urlOf("dark.mov"))));
}

TEST_F(MySaverTimesTest, resumedMovie_isPassedOver_whereItsTimeIsOver)
{
    for (const char* order : {"0", "1"}) {
        set("RandomMode", order);
        set("Continue", "1");
        store.setDefaultsForKey("dark.mov", "LastMovie");
        setGoodPlaylist({"a.mov", "dark.mov"});
        mark("night", {"dark.mov"});
        EXPECT_EQ(playing(startSaver()), "a.mov") << order;
    }
}

} // namespace kestro
