// What a moving movie leaves behind, and when.

#include "engine/EngineTest.h"
#include "engine/HeldStills.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <QCoreApplication>

#include <algorithm>

namespace kestro {

namespace {

class MySaverEffectsTest : public EngineTest {
protected:
    MySaverEffectsTest()
    {
        set("FullScreenMode", "0");
        set("Fadeout", "1");
        set("Scale", "0.5");
    }
    void setMode(const char* partial) { set("PartialMode", partial); }
    const Window* windowOfKind(const QString& kind)
    {
        for (const auto* window : desktop.mainScreen()->windows())
            if (window->kind() == kind) return window;
        return nullptr;
    }
    MySaver& started(bool isPreview = false)
    {
        auto& saver = makeSaver(isPreview);
        saver.startAnimation();
        return saver;
    }
    /// One tick, with the capture that it may have begun brought to its end.
    void tickAndSettle(MySaver& saver)
    {
        tick(saver);
        while (saver.isCapturing())
            QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    void settledFor(MySaver& saver, double seconds)
    {
        const double end = clock.now() + seconds - 1e-9;
        while (clock.now() < end)
            tickAndSettle(saver);
    }
    /// A playlist of movies that open, of `seconds` each, whose stills are taken so.
    void setPlaylistWith(HeldStills& stills, const QStringList& names, double seconds)
    {
        setPlaylist(names);
        const auto take = [&stills](MovieTime time, const std::stop_token& stop) {
            return stills.take(time, stop);
        };
        for (const auto& name : names)
            describe(name, {.seconds = seconds, .colour = Qt::white, .takesStill = take});
    }
    [[nodiscard]] bool hasPictureLeft() { return windowOfKind("fade")->frame() != Rect{{0, 0}, {1, 1}}; }
    [[nodiscard]] int missing() const { return logged("movie doesn't have a image."); }
};

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

TEST_F(MySaverEffectsTest, stills_areNeverTakenOnTheMainThread)
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

TEST_F(MySaverEffectsTest, fly_asksASecondAhead_forThePictureThatWillShow)
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

TEST_F(MySaverEffectsTest, fly_asksForTheRightPicture_whenTheMovieLoopsMeanwhile)
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

TEST_F(MySaverEffectsTest, fly_waitsForNoStill_andLeavesNoneBehindLate)
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

TEST_F(MySaverEffectsTest, fly_asksEarlier_whenTheLastStillTookLong)
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

TEST_F(MySaverEffectsTest, fly_asksForNoStill_thatWouldFindAFadeRunning)
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

TEST_F(MySaverEffectsTest, end_leavesTheLastPicture)
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

TEST_F(MySaverEffectsTest, bounce_skipsAStill_whileAnotherIsBeingTaken)
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
    while (saver.isCapturing())
        QCoreApplication::processEvents();
    EXPECT_EQ(saver.snapshot().trail, 2);
    EXPECT_EQ(stills.asked().size(), 2U);
    settledFor(saver, 0.2);
    EXPECT_EQ(saver.snapshot().trail, 3);
}

TEST_F(MySaverEffectsTest, switch_doesNotWaitForAStill)
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

TEST_F(MySaverEffectsTest, bounce_asksForNoStill_beforeTheMovieHasASize)
{
    HeldStills stills;
    setMode("1");
    setPlaylist({"a.mov"});
    const auto take = [&stills](MovieTime time, const std::stop_token& stop) {
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

// A still shows at 1.0, 0.98, 0.96 and so on, one step a tick, whatever else has it drawn once more.
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
