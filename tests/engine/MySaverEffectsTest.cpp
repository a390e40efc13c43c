// What a moving movie leaves behind, and when.

#include "engine/EffectsTest.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <algorithm>

namespace kestro {

namespace {

class MySaverEffectsTest : public EffectsTest {};

} // namespace

TEST_F(MySaverEffectsTest, fly_leavesThePictureFadingAtItsOldPlace)
{
    setMode("0");
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = started();
    const Rect old = saver.movieView()->frame();
    EXPECT_FALSE(saver.snapshot().isFading);
    settledFor(saver, 4.1);
    EXPECT_TRUE(saver.snapshot().isFading);
    EXPECT_NE(saver.movieView()->frame(), old);
    EXPECT_EQ(windowOfKind("fade")->frame(), old);
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
    settledFor(saver, 1.1);
    EXPECT_FALSE(saver.snapshot().isFading);
    EXPECT_EQ(windowOfKind("fade")->frame(), (Rect{{0, 0}, {1, 1}}));
}

TEST_F(MySaverEffectsTest, fly_putsTheFadeOnItsOwnScreen)
{
    setMode("0");
    desktop.addScreen({{1920, 100}, {1920, 1080}});
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = makeSaver(false, 1);
    saver.startAnimation();
    const Rect old = saver.movieView()->frame();
    settledFor(saver, 4.1);
    const Window* fade = desktop.screens()[1]->windows().back();
    EXPECT_EQ(fade->kind(), "fade");
    EXPECT_EQ(fade->frame(), old.movedBy({1920, 100}));
}

TEST_F(MySaverEffectsTest, fly_leavesThePictureOfAMovieThatEnded)
{
    setMode("0");
    set("Interval", "1000");
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    auto& saver = started();
    const Rect old = saver.movieView()->frame();
    settledFor(saver, 2.1);
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_TRUE(saver.snapshot().isFading);
    EXPECT_EQ(windowOfKind("fade")->frame(), old);
}

TEST_F(MySaverEffectsTest, preview_leavesNothing)
{
    for (const char* mode : {"0", "1"}) {
        setMode(mode);
        setGoodPlaylist({"a.mov", "b.mov"}, 2);
        auto& saver = started(true);
        settledFor(saver, 5);
        EXPECT_FALSE(saver.snapshot().isFading);
        EXPECT_EQ(saver.snapshot().trail, 0);
    }
    EXPECT_EQ(logged("movie doesn't have a image."), 0);
}

TEST_F(MySaverEffectsTest, fly_leavesNothing_withoutFadeOut)
{
    set("Fadeout", "0");
    setMode("0");
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = started();
    settledFor(saver, 4.2);
    EXPECT_FALSE(saver.snapshot().isFading);
}

TEST_F(MySaverEffectsTest, bounce_takesAStillAtTheFirstTickAndEveryElevenAfter)
{
    setMode("1");
    setGoodPlaylist({"a.mov"}, 1000);
    auto& saver = started();
    std::vector<int> ticksWithANewStill;
    for (int i = 1; i <= 50; ++i) {
        const int before = saver.snapshot().trail;
        tickAndSettle(saver);
        if (saver.snapshot().trail > before) ticksWithANewStill.push_back(i);
    }
    EXPECT_EQ(ticksWithANewStill, (std::vector<int>{1, 12, 23, 34, 45}));
}

TEST_F(MySaverEffectsTest, bounce_showsTheStillBehindTheMovieAtTheWindowsSize)
{
    setMode("1");
    setGoodPlaylist({"a.mov"}, 1000);
    describe("a.mov", {.naturalSize = {640, 360}, .seconds = 1000, .colour = Qt::white});
    auto& saver = started();
    const Rect first = saver.movieView()->frame();
    tickAndSettle(saver);
    for (int i = 0; i < 9; ++i)
        tickAndSettle(saver);
    const Rect now = saver.movieView()->frame();
    const Point corner{now.left() > first.left() ? first.left() + 2 : first.right() - 3,
                       now.bottom() > first.bottom() ? first.bottom() + 2 : first.top() - 3};
    const int seen = pixelAt(static_cast<int>(corner.x), static_cast<int>(corner.y)).red();
    EXPECT_GT(seen, 180);
    EXPECT_LT(seen, 255);
}

// What the window hid when the trail was last drawn is made good as soon as it moves on.
TEST_F(MySaverEffectsTest, bounce_leavesNothingButTheTrailBehindTheWindow)
{
    setMode("1");
    setGoodPlaylist({"a.mov"}, 10000);
    describe("a.mov", {.naturalSize = {640, 360}, .seconds = 10000, .colour = Qt::white});
    auto& saver = started();
    std::vector<Rect> stills;
    for (int i = 0; i < 700; ++i) {
        const Rect before = saver.movieView()->frame();
        const bool takes = i % 11 == 0;
        tickAndSettle(saver);
        if (takes) stills.insert(stills.begin(), before);
        if (stills.size() > 5) stills.pop_back();
        if (i % 7 != 0) continue;
        stills.push_back(saver.movieView()->frame());
        for (int x = 3; x < 1920; x += 37)
            for (int y = 5; y < 1080; y += 31) {
                const Rect point{{static_cast<float>(x), static_cast<float>(y)}, {1, 1}};
                const auto covers = [&](const Rect& still) {
                    return !intersectionRect(still, point).isEmpty();
                };
                const bool isCovered = std::any_of(stills.begin(), stills.end(), covers);
                ASSERT_TRUE(isCovered || pixelAt(x, y) == QColor(Qt::black)) << i << ": " << x << ' ' << y;
            }
        stills.pop_back();
    }
}

TEST_F(MySaverEffectsTest, bounce_takesAStillAtASwitch_whenThereAreMoreEntries)
{
    setMode("1");
    setGoodPlaylist({"a.mov", "b.mov"}, 0.3);
    auto& saver = started();
    tickAndSettle(saver);
    EXPECT_EQ(saver.snapshot().trail, 1);
    for (int i = 0; i < 6; ++i)
        tickAndSettle(saver);
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_EQ(saver.snapshot().trail, 2);
}

TEST_F(MySaverEffectsTest, bounce_takesNoStillAtASwitch_whenThereIsOneEntry)
{
    setMode("1");
    setGoodPlaylist({"a.mov"}, 0.3);
    auto& saver = started();
    saver.movieView()->setLoopMode(LoopMode::Normal);
    for (int i = 0; i < 8; ++i)
        tickAndSettle(saver);
    EXPECT_EQ(movies.tried().size(), 2U);
    EXPECT_EQ(saver.snapshot().trail, 1);
}

TEST_F(MySaverEffectsTest, bounce_takesNoStill_withoutFadeOut)
{
    set("Fadeout", "0");
    setMode("1");
    setGoodPlaylist({"a.mov"}, 1000);
    auto& saver = started();
    for (int i = 0; i < 30; ++i)
        tickAndSettle(saver);
    EXPECT_EQ(saver.snapshot().trail, 0);
}

TEST_F(MySaverEffectsTest, bounce_drawsWhatTheWindowUncovers_whileAStillIsBeingTaken)
{
    HeldStills stills(true, {320, 180});
    setMode("1");
    setPlaylistWith(stills, {"a.mov"}, 1000);
    auto& saver = started();
    const Rect still = saver.movieView()->frame();
    for (int i = 0; i < 11; ++i)
        tickAndSettle(saver);
    const Rect before = saver.movieView()->frame();
    stills.hold();
    tick(saver);
    EXPECT_TRUE(saver.isCapturing());
    const Rect now = saver.movieView()->frame();
    const Rect both = intersectionRect(before, still);
    const Point corner{now.left() > before.left() ? both.left() + 1 : both.right() - 2,
                       now.bottom() > before.bottom() ? both.bottom() + 1 : both.top() - 2};
    EXPECT_GT(pixelAt(static_cast<int>(corner.x), static_cast<int>(corner.y)).red(), 180);
}

TEST_F(MySaverEffectsTest, bounce_fadesEachStillByOneStepATick_throughCapturesAndSwitches)
{
    HeldStills stills(true, {320, 180});
    setMode("1");
    setPlaylistWith(stills, {"a.mov", "b.mov"}, 1.5);
    auto& saver = started();
    const Rect still = saver.movieView()->frame();
    settledFor(saver, 0.5);
    const Rect now = saver.movieView()->frame();
    const Point corner{now.left() > still.left() ? still.left() + 1 : still.right() - 2,
                       now.bottom() > still.bottom() ? still.bottom() + 1 : still.top() - 2};
    const auto seen = [&] { return pixelAt(static_cast<int>(corner.x), static_cast<int>(corner.y)).red(); };
    EXPECT_NEAR(seen(), 255 * (1 - 0.02 * 9), 2);
    for (int ticks = 10; ticks < 45; ++ticks) {
        tickAndSettle(saver);
        ASSERT_NEAR(seen(), 255 * (1 - 0.02 * ticks), 2) << ticks;
    }
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_GT(saver.snapshot().trail, 4);
}

} // namespace kestro
