// What a person asks of a saver by keys.

#include "engine/SaverActs.h"

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

namespace kestro {

namespace {

class SaverActsTest : public EngineTest {
protected:
    SaverActsTest()
    {
        setGoodPlaylist({"a.mov", "b.mov", "c.mov"}, 120);
        never = &list;
    }
    MySaver& started()
    {
        auto& saver = makeSaver();
        saver.startAnimation();
        tick(saver);
        return saver;
    }
    void act(MySaver& saver, SaverAct what)
    {
        saver.act(what);
        tick(saver, 3);
    }
    [[nodiscard]] bool isSaying(int screen = 0) const { return windowOf(QStringLiteral("words"), screen); }
    static float volumeOf(const MySaver& saver) { return saver.movieView()->movie()->volume(); }

    NeverList list{home.path() + QStringLiteral("/never")};
};

} // namespace

TEST_F(SaverActsTest, title_isShownForFourSeconds)
{
    auto& saver = started();
    EXPECT_FALSE(isSaying());
    act(saver, SaverAct::ShowTitle);
    EXPECT_TRUE(isSaying());
    tickFor(saver, 4);
    EXPECT_TRUE(isSaying());
    tickFor(saver, 0.6);
    EXPECT_FALSE(isSaying());
    EXPECT_EQ(playing(saver), "a.mov");
}

TEST_F(SaverActsTest, nothingIsDone_whileTheSaverRests)
{
    auto& saver = started();
    saver.rest(Rest::Held);
    saver.act(SaverAct::ShowTitle);
    saver.act(SaverAct::NeverAgain);
    saver.rest(Rest::None);
    tick(saver, 3);
    EXPECT_FALSE(isSaying());
    EXPECT_EQ(playing(saver), "a.mov");
}

TEST_F(SaverActsTest, nothingIsDone_whileNoMovieShows)
{
    setPlaylist({"missing.mov"});
    auto& saver = started();
    act(saver, SaverAct::ShowTitle);
    act(saver, SaverAct::NeverAgain);
    EXPECT_FALSE(isSaying());
}

TEST_F(SaverActsTest, volume_goesDownAndUpInSteps_forLaterMoviesToo)
{
    set("SoundOn", "1");
    auto& saver = started();
    EXPECT_EQ(volumeOf(saver), 1);
    act(saver, SaverAct::Quieter);
    const float quiet = volumeOf(saver);
    EXPECT_LT(quiet, 1);
    EXPECT_TRUE(isSaying());
    saver.changeMovie(MovieStep::Next);
    tick(saver, 3);
    ASSERT_EQ(playing(saver), "b.mov");
    EXPECT_EQ(volumeOf(saver), quiet);
    act(saver, SaverAct::Louder);
    EXPECT_EQ(volumeOf(saver), 1);
    act(saver, SaverAct::Louder);
    EXPECT_EQ(volumeOf(saver), 1);
    for (int i = 0; i < 12; ++i)
        act(saver, SaverAct::Quieter);
    EXPECT_EQ(volumeOf(saver), 0);
}

TEST_F(SaverActsTest, volume_staysWhereSoundIsOff)
{
    set("SoundOn", "0");
    auto& saver = started();
    act(saver, SaverAct::Quieter);
    EXPECT_EQ(volumeOf(saver), 1);
    EXPECT_TRUE(isSaying());
}

TEST_F(SaverActsTest, movieThatIsNeverToBePlayedAgain_isNot_inLaterRunsEither)
{
    auto& saver = started();
    act(saver, SaverAct::NeverAgain);
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_TRUE(isSaying());
    for (const char* name : {"c.mov", "b.mov", "c.mov"}) {
        saver.changeMovie(MovieStep::Next);
        tick(saver, 3);
        EXPECT_EQ(playing(saver), name);
    }
    NeverList later(home.path() + QStringLiteral("/never"));
    never = &later;
    EXPECT_EQ(playing(started()), "b.mov");
}

TEST_F(SaverActsTest, movieThatWasTakenBack_isPlayedAgain)
{
    auto& saver = started();
    act(saver, SaverAct::NeverAgain);
    act(saver, SaverAct::TakeBack);
    EXPECT_EQ(playing(saver), "b.mov");
    saver.changeMovie(MovieStep::Previous);
    tick(saver, 3);
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_FALSE(list.holds(urlOf("a.mov")));
}

TEST_F(SaverActsTest, lastMovieThatIsLeft_stays)
{
    auto& saver = started();
    act(saver, SaverAct::NeverAgain);
    act(saver, SaverAct::NeverAgain);
    ASSERT_EQ(playing(saver), "c.mov");
    act(saver, SaverAct::NeverAgain);
    EXPECT_EQ(playing(saver), "c.mov");
    EXPECT_FALSE(list.holds(urlOf("c.mov")));
}

} // namespace kestro
