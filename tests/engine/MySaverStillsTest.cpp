// When the stills of what a movie leaves behind are taken, and what becomes of those that are late.

#include "engine/EffectsTest.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <algorithm>

namespace kestro {

namespace {

class MySaverStillsTest : public EffectsTest {};

} // namespace

TEST_F(MySaverStillsTest, stills_areNeverTakenOnTheMainThread)
{
    set("Interval", "2");
    for (const char* mode : {"0", "1"}) {
        HeldStills stills;
        setMode(mode);
        setPlaylistWith(stills, {"a.mov", "b.mov"}, 3);
        auto& saver = started();
        settledFor(saver, 8);
        EXPECT_GT(stills.threads().size(), 3U);
        for (const auto& thread : stills.threads())
            EXPECT_NE(thread, std::this_thread::get_id());
        saver.stopAnimation();
    }
    EXPECT_EQ(missing(), 0);
}

TEST_F(MySaverStillsTest, fly_asksASecondAhead_forThePictureThatWillShow)
{
    HeldStills stills;
    setMode("0");
    setPlaylistWith(stills, {"a.mov"}, 100);
    auto& saver = started();
    while (stills.asked().empty())
        tickAndSettle(saver);
    EXPECT_NEAR(clock.now(), 3.05, 0.06);
    const Rect old = saver.movieView()->frame();
    while (saver.movieView()->frame() == old)
        tickAndSettle(saver);
    EXPECT_TRUE(hasPictureLeft());
    EXPECT_EQ(stills.asked().size(), 1U);
    const double shown = secondsFromMovieTime(saver.movieView()->movie()->currentTime());
    EXPECT_NEAR(secondsFromMovieTime(stills.asked().front()), shown, 0.06);
}

TEST_F(MySaverStillsTest, fly_asksForTheRightPicture_whenTheMovieLoopsMeanwhile)
{
    HeldStills stills;
    setMode("0");
    setPlaylistWith(stills, {"a.mov"}, 3.5);
    auto& saver = started();
    settledFor(saver, 4.2);
    ASSERT_EQ(stills.asked().size(), 1U);
    EXPECT_NEAR(secondsFromMovieTime(stills.asked().front()), 0.55, 0.06);
    EXPECT_TRUE(hasPictureLeft());
}

TEST_F(MySaverStillsTest, fly_waitsForNoStill_andLeavesNoneBehindLate)
{
    HeldStills stills;
    setMode("0");
    setPlaylistWith(stills, {"a.mov"}, 100);
    auto& saver = started();
    const Rect old = saver.movieView()->frame();
    stills.hold();
    tickFor(saver, 4.2);
    EXPECT_NE(saver.movieView()->frame(), old);
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
    EXPECT_TRUE(saver.snapshot().isFading);
    EXPECT_FALSE(hasPictureLeft());
    EXPECT_EQ(missing(), 1);
    stills.letGo();
    settledFor(saver, 1.5);
    EXPECT_FALSE(hasPictureLeft());
}

TEST_F(MySaverStillsTest, fly_asksEarlier_whenTheLastStillTookLong)
{
    HeldStills stills;
    setMode("0");
    set("Interval", "8");
    setPlaylistWith(stills, {"a.mov"}, 100);
    auto& saver = started();
    stills.hold();
    tickFor(saver, 9);
    stills.letGo();
    settledFor(saver, 3);
    EXPECT_EQ(stills.asked().size(), 1U);
    while (stills.asked().size() < 2)
        tickAndSettle(saver);
    EXPECT_LT(clock.now(), 16.1 - 2.9);
    settledFor(saver, 16.2 - clock.now());
    EXPECT_TRUE(hasPictureLeft());
}

TEST_F(MySaverStillsTest, fly_asksForNoStill_thatWouldFindAFadeRunning)
{
    HeldStills stills;
    setMode("0");
    set("Interval", "0.5");
    setPlaylistWith(stills, {"a.mov"}, 100);
    auto& saver = started();
    settledFor(saver, 1.9);
    ASSERT_EQ(stills.asked().size(), 2U);
    EXPECT_GT(secondsFromMovieTime(stills.asked().back()), 1.5);
}

TEST_F(MySaverStillsTest, end_leavesTheLastPicture)
{
    for (const char* mode : {"0", "1"}) {
        HeldStills stills;
        setMode(mode);
        set("Interval", "1000");
        setPlaylistWith(stills, {"a.mov", "b.mov"}, 2);
        auto& saver = started();
        while (playing(saver) == "a.mov")
            tickAndSettle(saver);
        const auto asked = stills.asked();
        EXPECT_NE(std::find(asked.begin(), asked.end(), MovieTime{1200, 600}), asked.end()) << mode;
        saver.stopAnimation();
    }
}

TEST_F(MySaverStillsTest, bounce_skipsAStill_whileAnotherIsBeingTaken)
{
    HeldStills stills;
    setMode("1");
    setPlaylistWith(stills, {"a.mov"}, 1000);
    auto& saver = started();
    tickAndSettle(saver);
    EXPECT_EQ(saver.snapshot().trail, 1);
    stills.hold();
    tick(saver, 30); // two more were due
    stills.letGo();
    ASSERT_TRUE(waitUntil([&] { return !saver.isCapturing(); }));
    EXPECT_EQ(saver.snapshot().trail, 2);
    EXPECT_EQ(stills.asked().size(), 2U);
    settledFor(saver, 0.2);
    EXPECT_EQ(saver.snapshot().trail, 3);
}

TEST_F(MySaverStillsTest, switch_doesNotWaitForAStill)
{
    HeldStills deaf(false);
    setMode("1");
    setPlaylistWith(deaf, {"a.mov", "b.mov"}, 2);
    auto& saver = started();
    deaf.hold();
    tickFor(saver, 2.1);
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_EQ(saver.snapshot().trail, 0);
    saver.stopAnimation();
    deaf.letGo();
}

TEST_F(MySaverStillsTest, bounce_asksForNoStill_beforeTheMovieHasASize)
{
    HeldStills stills;
    setMode("1");
    setPlaylist({"a.mov"});
    const auto take = [stills](MovieTime time, const std::stop_token& stop) {
        return stills.take(time, stop);
    };
    describe("a.mov", {.seconds = 100, .loadsAfter = 2, .takesStill = take});
    auto& saver = started();
    settledFor(saver, 1.9);
    EXPECT_EQ(stills.asked().size(), 0U);
    EXPECT_EQ(missing(), 0);
    settledFor(saver, 1);
    EXPECT_GT(stills.asked().size(), 0U);
    EXPECT_GT(saver.snapshot().trail, 0);
}

// The tick that takes a still uncovers a strip like every other: what lies below shows at once.

// A still shows at 1.0, 0.98, 0.96 and so on, one step a tick, whatever else has it drawn once more.

} // namespace kestro
