// How the saver rests, and how it goes on.

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <set>
#include <utility>

namespace kestro {

namespace {

class MySaverRestTest : public EngineTest {
protected:
    MySaver& playing60Seconds()
    {
        setGoodPlaylist({"a.mov", "b.mov"}, 60);
        auto& saver = makeSaver();
        saver.startAnimation();
        tickFor(saver, 5);
        return saver;
    }
    static double secondsOf(const MySaver& saver)
    {
        return secondsFromMovieTime(saver.movieView()->movie()->currentTime());
    }
    /// Whether any movie is played or shown.
    bool isAnythingAtHand() const
    {
        for (const auto& movie : movies.alive())
            if (movie->isAtHand()) return true;
        return false;
    }
    void turn(double seconds)
    {
        timers.advance(seconds);
        desktop.screens().front()->update();
    }
};

} // namespace

TEST_F(MySaverRestTest, held_standsStill_andGoesOnFromThere)
{
    auto& saver = playing60Seconds();
    saver.rest(Rest::Held);
    tickFor(saver, 100);
    EXPECT_EQ(saver.movieView()->movie()->rate(), 0.0F);
    EXPECT_NEAR(secondsOf(saver), 5, 0.1);
    EXPECT_TRUE(isAnythingAtHand());
    saver.rest(Rest::None);
    tickFor(saver, 1);
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_NEAR(secondsOf(saver), 6, 0.1);
}

TEST_F(MySaverRestTest, held_leavesAMovieEnded_andTakesTheNextAfterwards)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    auto& saver = makeSaver();
    saver.startAnimation();
    tick(saver);
    timers.advance(3);
    saver.rest(Rest::Held);
    tickFor(saver, 10);
    EXPECT_EQ(playing(saver), "a.mov");
    saver.rest(Rest::None);
    tick(saver, 2);
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
}

TEST_F(MySaverRestTest, held_takesNoNextMovie)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    auto& saver = makeSaver();
    saver.startAnimation();
    tick(saver);
    saver.rest(Rest::Held);
    tickFor(saver, 10);
    EXPECT_EQ(movies.tried().size(), 1U);
}

TEST_F(MySaverRestTest, off_letsGoOfTheMovie_andGoesOnFromThere)
{
    auto& saver = playing60Seconds();
    turn(0);
    ASSERT_TRUE(isAnythingAtHand());
    saver.rest(Rest::Off);
    turn(100);
    EXPECT_FALSE(isAnythingAtHand());
    saver.rest(Rest::None);
    tickFor(saver, 1);
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
    EXPECT_NEAR(secondsOf(saver), 6, 0.1);
    EXPECT_EQ(movies.tried().size(), 1U);
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::red));
}

TEST_F(MySaverRestTest, off_waitsWithASearch_untilTheRestIsOver)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    auto& saver = makeSaver();
    saver.startAnimation();
    saver.rest(Rest::Off);
    tickFor(saver, 30);
    EXPECT_EQ(movies.tried().size(), 1U);
    saver.rest(Rest::None);
    tickFor(saver, 2.2);
    EXPECT_EQ(playing(saver), "b.mov");
}

TEST_F(MySaverRestTest, still_showsThePictureThatStands_atHalfTheSizeAtMost_andLetsGo)
{
    auto& saver = playing60Seconds();
    turn(0);
    saver.rest(Rest::Still);
    tick(saver);
    ASSERT_TRUE(saver.snapshot().sign);
    const Rect at = *saver.snapshot().sign;
    EXPECT_EQ(at.size, (Size{960, 540}));
    EXPECT_FALSE(isAnythingAtHand());
    EXPECT_EQ(pixelAt(int(at.left()) + 480, int(at.bottom()) + 270), QColor(Qt::red));
    EXPECT_EQ(saver.animationTimeInterval(), 0.1);
}

TEST_F(MySaverRestTest, still_wandersAbout_onBlack)
{
    auto& saver = playing60Seconds();
    turn(0);
    saver.rest(Rest::Still);
    std::set<std::pair<float, float>> places;
    for (int i = 0; i < 100; ++i) {
        tick(saver);
        turn(0);
        places.insert({saver.snapshot().sign->left(), saver.snapshot().sign->bottom()});
    }
    EXPECT_GT(places.size(), 90U);
    EXPECT_FALSE(isAnythingAtHand());
    const Rect at = *saver.snapshot().sign;
    int red = 0;
    for (int x = 0; x < 1920; x += 10)
        for (int y = 0; y < 1080; y += 10) {
            const bool isInside =
                x >= at.left() - 1 && x <= at.right() && y >= at.bottom() - 1 && y <= at.top();
            if (!isInside && pixelAt(x, y) != QColor(Qt::black)) ++red;
        }
    EXPECT_EQ(red, 0);
}

TEST_F(MySaverRestTest, still_givesWayToTheMovie_fromWhereItWas)
{
    auto& saver = playing60Seconds();
    turn(0);
    saver.rest(Rest::Still);
    tickFor(saver, 20);
    saver.rest(Rest::None);
    EXPECT_EQ(saver.animationTimeInterval(), 0.05);
    tickFor(saver, 1);
    EXPECT_FALSE(saver.snapshot().sign);
    EXPECT_NEAR(secondsOf(saver), 6, 0.2);
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::red));
    EXPECT_EQ(movies.tried().size(), 1U);
}

TEST_F(MySaverRestTest, still_showsTheFirstPicture_whenNothingPlayedYet)
{
    setPlaylist({"slow.mov"});
    describe("slow.mov", {.seconds = 10, .loadsAfter = 2});
    auto& saver = makeSaver();
    saver.startAnimation();
    saver.rest(Rest::Still);
    tickFor(saver, 1);
    EXPECT_FALSE(saver.snapshot().sign);
    tickFor(saver, 3);
    turn(0);
    tick(saver, 2);
    ASSERT_TRUE(saver.snapshot().sign);
    EXPECT_FALSE(isAnythingAtHand());
    EXPECT_NEAR(secondsOf(saver), 0, 0.01);
    saver.rest(Rest::None);
    tickFor(saver, 1);
    EXPECT_NEAR(secondsOf(saver), 1, 0.2);
}

TEST_F(MySaverRestTest, still_letsTheSignWander_whenThereIsNoMovie)
{
    auto& saver = makeSaver();
    saver.startAnimation();
    saver.rest(Rest::Still);
    tick(saver);
    const auto before = saver.snapshot().sign;
    tick(saver);
    ASSERT_TRUE(before);
    EXPECT_NE(saver.snapshot().sign, before);
}

TEST_F(MySaverRestTest, still_keepsItsPicture_whenOffMeanwhile)
{
    auto& saver = playing60Seconds();
    turn(0);
    saver.rest(Rest::Still);
    tick(saver);
    saver.rest(Rest::Off);
    const auto before = saver.snapshot().sign;
    tickFor(saver, 5);
    EXPECT_EQ(saver.snapshot().sign, before);
    saver.rest(Rest::Still);
    tick(saver);
    EXPECT_NE(saver.snapshot().sign, before);
    EXPECT_FALSE(isAnythingAtHand());
}

TEST_F(MySaverRestTest, still_isTakenLater_whenOffCameFirst)
{
    auto& saver = playing60Seconds();
    saver.rest(Rest::Off);
    saver.rest(Rest::Still);
    turn(0);
    tick(saver);
    EXPECT_TRUE(saver.snapshot().sign);
    EXPECT_FALSE(isAnythingAtHand());
}

TEST_F(MySaverRestTest, movieWindow_isHidden_andComesBackWhereItWas)
{
    set("FullScreenMode", "0");
    set("PartialMode", "1");
    set("Scale", "0.5");
    auto& saver = playing60Seconds();
    const Rect at = saver.movieView()->frame();
    saver.rest(Rest::Still);
    tickFor(saver, 3);
    EXPECT_TRUE(saver.movieView()->covered().isEmpty());
    saver.rest(Rest::None);
    EXPECT_EQ(saver.movieView()->frame(), at);
    EXPECT_EQ(saver.movieView()->covered(), at);
}

TEST_F(MySaverRestTest, fade_isOver_afterwards)
{
    set("FullScreenMode", "0");
    set("PartialMode", "0");
    set("Fadeout", "1");
    set("Interval", "2");
    auto& saver = playing60Seconds();
    while (!saver.snapshot().isFading)
        tick(saver);
    saver.rest(Rest::Off);
    saver.rest(Rest::None);
    EXPECT_FALSE(saver.snapshot().isFading);
    while (!saver.snapshot().isFading)
        tick(saver);
    EXPECT_EQ(playing(saver), "a.mov");
}

TEST_F(MySaverRestTest, stopAnimation_storesWhereTheMovieWas_whileItIsLetGo)
{
    set("Continue", "1");
    auto& saver = playing60Seconds();
    saver.rest(Rest::Off);
    timers.advance(60);
    saver.stopAnimation();
    EXPECT_EQ(store.defaultsForKey("LastMovie")->toString(), "a.mov");
    EXPECT_NEAR(store.defaultsForKey("LastPos")->toDouble(), 5 * 600, 60);
}

} // namespace kestro
