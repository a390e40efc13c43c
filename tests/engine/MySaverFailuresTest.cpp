// What the saver does when movies cannot be played, at once, later, or in the middle: it goes on.

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <QFile>

namespace kestro {

namespace {

const MemoryMovieDescription dead{.loadsAfter = 0.2, .failsLoading = true};

class MySaverFailuresTest : public EngineTest {
protected:
    MySaver& started(bool isPreview = false)
    {
        auto& saver = makeSaver(isPreview);
        saver.startAnimation();
        return saver;
    }
    /// Ticks until the movie of that name plays, so many seconds at most.
    bool comesToPlay(MySaver& saver, const QString& name, double seconds)
    {
        for (const double end = clock.now() + seconds; clock.now() < end; tick(saver))
            if (playing(saver) == name && saver.movieView()->movie()->rate() != 0) return true;
        return false;
    }
    int tries(const QString& name) const
    {
        const QString url = urlOf(name).toString();
        return static_cast<int>(std::count(movies.tried().begin(), movies.tried().end(), url));
    }
};

} // namespace

TEST_F(MySaverFailuresTest, lateFailure_isLoggedAndRecorded_andTheNextEntryPlays)
{
    setPlaylist({"far.mov", "b.mov"});
    describe("far.mov", {.loadsAfter = 3, .failsLoading = true});
    describe("b.mov");
    auto& saver = started();
    tickFor(saver, 3.1);
    EXPECT_EQ(logged("Failed to load movie:http://m/far.mov"), 1);
    EXPECT_TRUE(saver.playlist().failedURLList().contains("http://m/far.mov"));
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
}

TEST_F(MySaverFailuresTest, wholeRoundOfFailures_givesWayToTheMovingSign)
{
    for (const char* order : {"0", "1"}) {
        set("RandomMode", order);
        setPlaylist({"far.mov", "away.mov"});
        describe("far.mov", {.loadsAfter = 1, .failsLoading = true});
        describe("away.mov", {.loadsAfter = 1, .failsLoading = true});
        auto& saver = started();
        tickFor(saver, 1.1);
        EXPECT_TRUE(saver.movieView());
        tickFor(saver, 1.2);
        EXPECT_FALSE(saver.movieView());
        ASSERT_TRUE(saver.snapshot().sign);
        EXPECT_EQ(saver.animationTimeInterval(), 0.1);
        const Rect before = *saver.snapshot().sign;
        tick(saver);
        EXPECT_NE(saver.snapshot().sign, before);
    }
}

TEST_F(MySaverFailuresTest, server_thatIsAwayForAWhile_isPlayedFromAgain)
{
    for (const char* order : {"0", "1"}) {
        set("RandomMode", order);
        setGoodPlaylist({"a.mov", "b.mov"}, 2);
        auto& saver = started();
        tickFor(saver, 1);
        describe("a.mov", dead);
        describe("b.mov", dead);
        tickFor(saver, 4);
        EXPECT_TRUE(saver.snapshot().sign);
        tickFor(saver, 6);
        EXPECT_TRUE(saver.snapshot().sign);
        setGoodPlaylist({"a.mov", "b.mov"}, 2);
        tickFor(saver, 3);
        EXPECT_FALSE(saver.snapshot().sign);
        EXPECT_NE(playing(saver), "");
        saver.stopAnimation();
    }
}

TEST_F(MySaverFailuresTest, server_thatComesAfterTheStart_isPlayedFrom)
{
    setPlaylist({"a.mov"});
    describe("a.mov", dead);
    auto& saver = started();
    tickFor(saver, 3);
    EXPECT_TRUE(saver.snapshot().sign);
    describe("a.mov", {.loadsAfter = 0.5});
    EXPECT_TRUE(comesToPlay(saver, "a.mov", 3));
}

TEST_F(MySaverFailuresTest, sign_staysUntilThereIsAMovie)
{
    setPlaylist({"a.mov"});
    describe("a.mov", dead);
    auto& saver = started();
    tickFor(saver, 1);
    describe("a.mov", {.loadsAfter = 20, .failsLoading = true});
    for (int ticks = 0; ticks < 400; ++ticks) {
        tick(saver);
        ASSERT_TRUE(saver.snapshot().sign);
    }
}

TEST_F(MySaverFailuresTest, sign_movesWhileAFirstFileTakesLong_andGivesWayToIt)
{
    QFile file(home.filePath(QStringLiteral("slow.mov")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString url = QUrl::fromLocalFile(file.fileName()).toString(QUrl::FullyEncoded);
    movies.describe(url, {.loadsAfter = 5});
    setPlaylist({url});
    auto& saver = started();
    EXPECT_TRUE(waitUntil([this] { return movies.tried().size() == 1; }));
    tickFor(saver, 0.9);
    EXPECT_FALSE(saver.snapshot().sign);
    tickFor(saver, 0.3);
    ASSERT_TRUE(saver.snapshot().sign);
    const Rect before = *saver.snapshot().sign;
    tick(saver);
    EXPECT_NE(saver.snapshot().sign, before);
    tickFor(saver, 5);
    EXPECT_FALSE(saver.snapshot().sign);
    EXPECT_EQ(playing(saver), "slow.mov");
    EXPECT_EQ(saver.animationTimeInterval(), 0.05);
}

TEST_F(MySaverFailuresTest, trailersThatFail_leaveTheOneGoodMoviePlaying)
{
    trailers.trailers = {urlOf("t1.mov"), urlOf("t2.mov"), urlOf("t3.mov")};
    for (const QUrl& url : trailers.trailers)
        describe(url.fileName(), dead);
    describe("good.mov", {.seconds = 2});
    set("FileList", QVariantList{urlOf("good.mov").toString(), "auto://LatestTrailers/6/480"});
    auto& saver = started();
    for (int ticks = 0; ticks < 600; ++ticks) {
        tick(saver);
        ASSERT_FALSE(saver.snapshot().sign);
    }
    EXPECT_TRUE(comesToPlay(saver, "good.mov", 3));
}

TEST_F(MySaverFailuresTest, trailersAlone_playAgain_whenTheirServerIsBack)
{
    trailers.trailers = {urlOf("t1.mov"), urlOf("t2.mov")};
    for (const QUrl& url : trailers.trailers)
        describe(url.fileName(), dead);
    set("FileList", QVariantList{"auto://LatestTrailers/6/480"});
    auto& saver = started();
    tickFor(saver, 10);
    EXPECT_TRUE(saver.snapshot().sign);
    for (const QUrl& url : trailers.trailers)
        describe(url.fileName(), {.seconds = 100});
    EXPECT_TRUE(comesToPlay(saver, "t1.mov", 3));
    EXPECT_EQ(logged("Failed to load movie:http://m/t1.mov"), 1);
}

TEST_F(MySaverFailuresTest, fileThatOpensAndBreaksOffAtOnce_givesWayToTheSign_andIsTriedLessAndLess)
{
    QFile file(home.filePath(QStringLiteral("broken.mov")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString url = QUrl::fromLocalFile(file.fileName()).toString(QUrl::FullyEncoded);
    movies.describe(url, {.seconds = 0, .breaksOffAfter = 0});
    setPlaylist({url});
    auto& saver = started();
    EXPECT_TRUE(waitUntil([&] { return saver.snapshot().sign.has_value(); }));
    tickFor(saver, 70);
    EXPECT_TRUE(saver.snapshot().sign);
    const auto tries = movies.tried().size();
    EXPECT_LE(tries, 62U);
    tickFor(saver, 100);
    EXPECT_LE(movies.tried().size(), tries + 4);
}

TEST_F(MySaverFailuresTest, lateFailure_leavesTheOtherGoodMoviesInTheRound_inRandomOrder)
{
    for (int seed = 0; seed < 20; ++seed) {
        random = SeededRandom(static_cast<unsigned>(seed));
        set("RandomMode", "1");
        setPlaylist({"a.mov", "b.mov", "x.mov"});
        describe("a.mov", {.seconds = 2});
        describe("b.mov", {.seconds = 2});
        describe("x.mov", dead);
        auto& saver = started();
        EXPECT_TRUE(comesToPlay(saver, "a.mov", 30)) << seed;
        EXPECT_TRUE(comesToPlay(saver, "b.mov", 30)) << seed;
        EXPECT_TRUE(comesToPlay(saver, "a.mov", 30)) << seed;
        saver.stopAnimation();
    }
}

TEST_F(MySaverFailuresTest, oneGoodMovieAmongDeadOnes_neverGivesWayToTheSign_inRandomOrder)
{
    set("RandomMode", "1");
    setPlaylist({"x.mov", "good.mov", "y.mov"});
    describe("x.mov", dead);
    describe("y.mov", dead);
    describe("good.mov", {.seconds = 2});
    auto& saver = started();
    for (int ticks = 0; ticks < 2000; ++ticks) {
        tick(saver);
        ASSERT_FALSE(saver.snapshot().sign);
    }
    EXPECT_TRUE(comesToPlay(saver, "good.mov", 3));
}

TEST_F(MySaverFailuresTest, entryThatAlwaysFails_isNotAskedAgain_besideASingleGoodOne)
{
    setPlaylist({"good.mov", "bad.mov"});
    describe("good.mov", {.seconds = 2});
    describe("bad.mov", dead);
    auto& saver = started();
    tickFor(saver, 3);
    EXPECT_TRUE(saver.movieView()->movie()->attribute(MovieAttribute::Loops));
    tickFor(saver, 100);
    EXPECT_EQ(playing(saver), "good.mov");
    EXPECT_EQ(tries("bad.mov"), 1);
    EXPECT_EQ(tries("good.mov"), 2);
}

TEST_F(MySaverFailuresTest, entryThatAlwaysFails_isAskedEveryHalfMinute_whereTheGoodOneDoesNotLoop)
{
    set("FullScreenMode", "0");
    set("PartialMode", "0");
    set("Reposition", "1");
    setPlaylist({"good.mov", "bad.mov"});
    describe("good.mov", {.seconds = 2});
    describe("bad.mov", dead);
    auto& saver = started();
    tickFor(saver, 95);
    EXPECT_EQ(tries("bad.mov"), 4);
    EXPECT_GT(tries("good.mov"), 30);
}

TEST_F(MySaverFailuresTest, movieThatBreaksOffLater_doesNotMakeTheOtherLoop)
{
    setPlaylist({"a.mov", "b.mov"});
    describe("a.mov", {.seconds = 2});
    describe("b.mov", {.seconds = 100, .breaksOffAfter = 5});
    auto& saver = started();
    tickFor(saver, 6);
    EXPECT_EQ(playing(saver), "b.mov");
    tickFor(saver, 2);
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(logged("Failed to load movie:http://m/b.mov"), 1);
    EXPECT_FALSE(saver.movieView()->movie()->attribute(MovieAttribute::Loops));
}

TEST_F(MySaverFailuresTest, correctedList_playsAtOnce_inThePreview)
{
    setPlaylist({"x.mov", "y.mov"});
    describe("x.mov", dead);
    describe("y.mov", dead);
    auto& saver = started(true);
    tickFor(saver, 5);
    EXPECT_TRUE(saver.snapshot().sign);
    setPlaylist({"x.mov", "good.mov", "y.mov"});
    describe("good.mov");
    saver.playlist().dropFileList();
    saver.resetMovie();
    EXPECT_TRUE(comesToPlay(saver, "good.mov", 2));
    EXPECT_EQ(playing(saver), "good.mov");
}

TEST_F(MySaverFailuresTest, everyScreen_ticksWhileOneSearches)
{
    set("RandomMode", "1");
    setPlaylist({"x.mov", "y.mov"});
    auto& one = started();
    auto& other = started();
    for (int i = 0; i < 50; ++i) {
        const auto before = std::pair(one.snapshot().sign, other.snapshot().sign);
        tick(one);
        other.animateOneFrame();
        EXPECT_NE(one.snapshot().sign, before.first);
        EXPECT_NE(other.snapshot().sign, before.second);
    }
}

TEST_F(MySaverFailuresTest, resumePosition_waitsForAServerThatComesLater)
{
    set("Continue", "1");
    store.setDefaults({{"LastMovie", "b.mov"}, {"LastPos", "1800"}});
    setPlaylist({"a.mov", "b.mov"});
    describe("a.mov", dead);
    describe("b.mov", dead);
    auto& saver = started();
    tickFor(saver, 3);
    saver.stopAnimation();
    EXPECT_EQ(store.defaultsPlist()["LastPos"], "1800");
    saver.startAnimation();
    describe("a.mov", {.loadsAfter = 0.5});
    describe("b.mov", {.loadsAfter = 0.5});
    ASSERT_TRUE(comesToPlay(saver, "b.mov", 3));
    EXPECT_GE(saver.snapshot().movie->time, 1800);
    EXPECT_LT(saver.snapshot().movie->time, 1900);
}

TEST_F(MySaverFailuresTest, movieThatEnded_playsAgain_whenNothingElseOpens_inBothOrders)
{
    for (const char* order : {"0", "1"}) {
        set("RandomMode", order);
        setGoodPlaylist({"a.mov", "b.mov"}, 2);
        auto& saver = started();
        const QString shown = playing(saver);
        describe("a.mov", {.opens = false});
        describe("b.mov", {.opens = false});
        tickFor(saver, 2.1);
        EXPECT_EQ(playing(saver), shown);
        EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
        saver.stopAnimation();
    }
}

TEST_F(MySaverFailuresTest, server_thatComesBackWhileItsEntriesAreTried_isPlayedFromInFull)
{
    for (const char* order : {"0", "1"}) {
        set("RandomMode", order);
        setPlaylist({"a.mov", "b.mov"});
        describe("a.mov", dead);
        describe("b.mov", {.seconds = 2, .loadsAfter = 0.5});
        auto& saver = started();
        ASSERT_TRUE(comesToPlay(saver, "b.mov", 5));
        tickFor(saver, 10);
        EXPECT_EQ(playing(saver), "b.mov");
        describe("a.mov", {.seconds = 2, .loadsAfter = 0.5});
        EXPECT_TRUE(comesToPlay(saver, "a.mov", 35));
        EXPECT_TRUE(comesToPlay(saver, "b.mov", 5));
        EXPECT_TRUE(comesToPlay(saver, "a.mov", 5));
        saver.stopAnimation();
    }
}

TEST_F(MySaverFailuresTest, movieAlone_loopsFromThenOn_onceTheEntryThatRestedWasTriedAgain)
{
    setPlaylist({"a.mov", "b.mov"});
    describe("a.mov", dead);
    describe("b.mov", {.seconds = 2});
    auto& saver = started();
    ASSERT_TRUE(comesToPlay(saver, "b.mov", 5));
    tickFor(saver, 25);
    EXPECT_EQ(tries("a.mov"), 1);
    tickFor(saver, 10);
    EXPECT_EQ(tries("a.mov"), 2);
    tickFor(saver, 100);
    EXPECT_EQ(tries("a.mov"), 2);
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_TRUE(saver.movieView()->movie()->attribute(MovieAttribute::Loops));
}

} // namespace kestro
