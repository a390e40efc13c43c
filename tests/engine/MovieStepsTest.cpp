#include "engine/MovieSteps.h"

#include "engine/EffectsTest.h"

namespace kestro {

namespace {

/// Three movies of two minutes, which the saver plays full screen.
class MovieStepsTest : public EngineTest {
protected:
    MovieStepsTest() { setGoodPlaylist({"a.mov", "b.mov", "c.mov"}, 120); }

    MySaver& started()
    {
        auto& saver = makeSaver();
        saver.startAnimation();
        tick(saver);
        return saver;
    }
    /// What plays once the step is done.
    QString after(MySaver& saver, MovieStep step)
    {
        saver.changeMovie(step);
        tick(saver, 3);
        return playing(saver);
    }
    QString next(MySaver& saver) { return after(saver, MovieStep::Next); }
    QString previous(MySaver& saver) { return after(saver, MovieStep::Previous); }
};

class StepEffectsTest : public EffectsTest {
protected:
    StepEffectsTest()
    {
        set("Interval", "1000");
        setGoodPlaylist({"a.mov", "b.mov"}, 120);
    }
    /// The saver in that mode, which has been told to change.
    MySaver& changed(const char* mode)
    {
        setMode(mode);
        auto& saver = started();
        settledFor(saver, 0.2);
        saver.changeMovie(MovieStep::Next);
        tick(saver, 2);
        return saver;
    }
};

} // namespace

TEST_F(MovieStepsTest, next_playsTheFollowingMovie_roundThePlaylist)
{
    auto& saver = started();
    EXPECT_EQ(next(saver), "b.mov");
    EXPECT_EQ(next(saver), "c.mov");
    EXPECT_EQ(next(saver), "a.mov");
}

TEST_F(MovieStepsTest, stepsAtOnce_areDoneOneAfterTheOther)
{
    auto& saver = started();
    saver.changeMovie(MovieStep::Next);
    EXPECT_EQ(next(saver), "c.mov");
    saver.changeMovie(MovieStep::Previous);
    EXPECT_EQ(previous(saver), "a.mov");
    saver.changeMovie(MovieStep::Next);
    EXPECT_EQ(previous(saver), "a.mov");
}

TEST_F(MovieStepsTest, stepWhileAnotherIsUnderWay_isDoneAfterwards)
{
    setPlaylist({"a.mov", "file:///b.mov", "c.mov"});
    movies.describe(QStringLiteral("file:///b.mov"), {.seconds = 120, .loadsAfter = 1});
    auto& saver = started();
    saver.changeMovie(MovieStep::Next);
    tick(saver);
    ASSERT_EQ(playing(saver), "a.mov"); // the next one is looked into
    saver.changeMovie(MovieStep::Next);
    tickFor(saver, 1.2);
    EXPECT_EQ(playing(saver), "c.mov");
}

TEST_F(MovieStepsTest, previous_goesBackThroughWhatWasShown)
{
    auto& saver = started();
    next(saver);
    next(saver);
    EXPECT_EQ(previous(saver), "b.mov");
    EXPECT_EQ(previous(saver), "a.mov");
}

TEST_F(MovieStepsTest, previous_changesNothing_whereNothingWasShownBefore)
{
    auto& saver = started();
    tickFor(saver, 5);
    EXPECT_EQ(previous(saver), "a.mov");
    EXPECT_GT(saver.snapshot().movie->time, 5 * 600);
    EXPECT_EQ(next(saver), "b.mov");
}

TEST_F(MovieStepsTest, next_goesOnBehindTheMovieThatPreviousWentBackTo)
{
    auto& saver = started();
    next(saver);
    next(saver);
    previous(saver);
    EXPECT_EQ(next(saver), "c.mov");
}

TEST_F(MovieStepsTest, next_goesOnAtTheBeginning_behindTheLastMovieThatPreviousWentBackTo)
{
    auto& saver = started();
    for (int i = 0; i < 3; ++i)
        next(saver);
    ASSERT_EQ(previous(saver), "c.mov");
    EXPECT_EQ(next(saver), "a.mov");
}

TEST_F(MovieStepsTest, wayBack_leavesOutWhatThePlaylistHoldsNoMore)
{
    Settings settings(store, {});
    Playlist playlist(settings, trailers, false);
    const QList<QUrl> listed = playlist.fileList();
    MovieSteps steps;
    for (const QUrl& shown : {listed[0], QUrl(QStringLiteral("file:///gone.mov")), listed[2]})
        steps.shows(shown);
    EXPECT_EQ(steps.wayBack(playlist, true)->next(), listed[0]);
}

TEST(MovieSteps, steps_areNoMoreThanTheWayBackIsLong)
{
    MovieSteps steps;
    for (int i = 0; i < MovieSteps::longestWay + 50; ++i)
        steps.ask(MovieStep::Next);
    int taken = 0;
    while (steps.take())
        ++taken;
    EXPECT_EQ(taken, MovieSteps::longestWay);
}

TEST(MovieSteps, stepThatWasAskedFor_isLeft_whenAnotherMovieComesByItself)
{
    MovieSteps steps;
    steps.shows(QUrl(QStringLiteral("file:///a.mov")));
    steps.ask(MovieStep::Next);
    steps.shows(QUrl(QStringLiteral("file:///b.mov")));
    EXPECT_FALSE(steps.isAsked());
}

TEST_F(MovieStepsTest, previous_findsWhatCameByChance)
{
    set("Random", "1");
    auto& saver = started();
    QStringList shown{playing(saver)};
    for (int i = 0; i < 6; ++i)
        shown.append(next(saver));
    for (int i = 5; i >= 0; --i)
        EXPECT_EQ(previous(saver), shown[i]) << i;
}

TEST_F(MovieStepsTest, previous_passesOverWhatCannotBeOpenedAnyMore)
{
    auto& saver = started();
    next(saver);
    next(saver);
    describe("b.mov", {.opens = false});
    EXPECT_EQ(previous(saver), "a.mov");
}

TEST_F(MovieStepsTest, movie_goesOn_whereNothingOfBeforeCanBeOpened)
{
    auto& saver = started();
    next(saver);
    describe("a.mov", {.opens = false});
    tickFor(saver, 5);
    EXPECT_EQ(previous(saver), "b.mov");
    const auto before = saver.snapshot().movie->time;
    EXPECT_GT(before, 5 * 600);
    tickFor(saver, 1);
    EXPECT_GT(saver.snapshot().movie->time, before);
    tickFor(saver, 120);
    EXPECT_EQ(playing(saver), "c.mov");
}

TEST_F(MovieStepsTest, movieThatIsAlone_goesOn)
{
    setGoodPlaylist({"a.mov"}, 120);
    auto& saver = started();
    tickFor(saver, 5);
    EXPECT_EQ(next(saver), "a.mov");
    EXPECT_GT(saver.snapshot().movie->time, 5 * 600);
}

TEST_F(MovieStepsTest, movieThatWasAlone_loopsNoMore_onceNextHasFoundAnother)
{
    const QString other = QStringLiteral("file:///b.mov");
    setPlaylist({"a.mov", other});
    describe("a.mov", {.seconds = 2});
    auto& saver = started();
    tickFor(saver, 3); // it loops
    movies.describe(other, {.seconds = 2});
    tickFor(saver, 2);
    ASSERT_EQ(playing(saver), "a.mov");
    ASSERT_EQ(next(saver), "b.mov");
    tickFor(saver, 2.2);
    EXPECT_EQ(playing(saver), "a.mov");
}

TEST_F(MovieStepsTest, step_doesNothing_whileTheSaverRests)
{
    auto& saver = started();
    saver.rest(Rest::Held);
    saver.changeMovie(MovieStep::Next);
    saver.rest(Rest::None);
    tick(saver, 3);
    EXPECT_EQ(playing(saver), "a.mov");
}

TEST_F(MovieStepsTest, step_doesNothing_whileNothingPlays)
{
    setPlaylist({"http://m/missing.mov"});
    auto& saver = started();
    EXPECT_EQ(next(saver), "");
    EXPECT_EQ(previous(saver), "");
}

TEST_F(MovieStepsTest, way_hasAnEnd)
{
    auto& saver = started();
    for (int i = 0; i < MovieSteps::longestWay + 3; ++i)
        next(saver);
    int ways = 0;
    for (QString before = playing(saver); previous(saver) != before; before = playing(saver))
        ++ways;
    EXPECT_EQ(ways, MovieSteps::longestWay);
}

TEST_F(StepEffectsTest, movieThatFlies_leavesThePictureThatFades)
{
    auto& saver = changed("0");
    ASSERT_EQ(playing(saver), "b.mov");
    EXPECT_TRUE(saver.snapshot().isFading);
    EXPECT_TRUE(hasPictureLeft());
    EXPECT_EQ(missing(), 0);
}

TEST_F(StepEffectsTest, movieThatBounces_leavesItsLastPictureInTheTrail)
{
    auto& saver = changed("1");
    ASSERT_EQ(playing(saver), "b.mov");
    EXPECT_GT(saver.snapshot().trail, 1);
    EXPECT_EQ(missing(), 0);
}

} // namespace kestro
