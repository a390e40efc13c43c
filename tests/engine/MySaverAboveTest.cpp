// Another saver behind the movies: what is seen of both.

#include "engine/BackgroundTest.h"
#include "platform/display/desktop/Cursor.h"
#include "platform/display/view/WindowShadow.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

namespace kestro {

namespace {

class MySaverAboveTest : public BackgroundTest {};

Rect withShadow(const Rect& window)
{
    const QMargins reach = WindowShadow::reach(1);
    return {{window.origin.x - static_cast<float>(reach.left()),
             window.origin.y - static_cast<float>(reach.bottom())},
            {window.size.width + static_cast<float>(reach.left() + reach.right()),
             window.size.height + static_cast<float>(reach.top() + reach.bottom())}};
}

} // namespace

TEST_F(MySaverAboveTest, window_isClearAndAtTheBackOfItsLevelOverTheOtherView)
{
    setGoodPlaylist({"a.mov"});
    set("Fadeout", "1");
    started();
    const auto& windows = desktop.mainScreen()->windows();
    ASSERT_EQ(windows.size(), 3U);
    EXPECT_EQ(windows[0]->kind(), "host");
    EXPECT_EQ(windows[1]->kind(), "saver");
    EXPECT_EQ(windows[2]->kind(), "fade");
    EXPECT_EQ(windows[1]->frame(), (Rect{{0, 0}, screenSize}));
    EXPECT_EQ(windows[1]->level(), WindowLevel::Shielding);
    EXPECT_FALSE(windows[1]->isOpaque());
    EXPECT_EQ(windows[1]->backgroundColor(), QColor(Qt::transparent));
}

TEST_F(MySaverAboveTest, window_isOnTheScreenOfTheOtherView)
{
    const Rect second{{1920, 100}, {800, 600}};
    desktop.addScreen(second);
    setGoodPlaylist({"a.mov"});
    auto& saver = started(1);
    EXPECT_EQ(saver.window()->frame(), second);
    EXPECT_EQ(saver.frame(), (Rect{{0, 0}, second.size}));
    EXPECT_EQ(windowOfKind("saver", 0), nullptr);
}

TEST_F(MySaverAboveTest, window_followsTheSizeOfTheOtherView)
{
    setPlaylist({});
    auto& saver = started();
    hostWindow->setFrameDisplay({{0, 0}, {1280, 720}}, true);
    run(0.1);
    EXPECT_EQ(saver.window()->frame(), (Rect{{0, 0}, {1280, 720}}));
    EXPECT_EQ(saver.frame().size, (Size{1280, 720}));
}

TEST_F(MySaverAboveTest, movie_playsAboveTheBackground)
{
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = started();
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
    EXPECT_TRUE(desktop.cursor().isHidden());
    EXPECT_EQ(background->starts, 1);
    const Rect movie = saver.movieView()->frame();
    EXPECT_EQ(seen(middleOf(movie)), QColor(Qt::red));
    expectBlueBut({movie}, "playing");
}

TEST_F(MySaverAboveTest, fly_fadesOverTheLiveBackground)
{
    set("Fadeout", "1");
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = started();
    const Rect old = saver.movieView()->frame();
    while (!saver.snapshot().isFading)
        runSettled(saver, 1);
    const Rect now = saver.movieView()->frame();
    run(0.45);
    const Point left{now.left() > old.left() ? old.left() + 2 : old.right() - 3, middleOf(old).y};
    const Point below{middleOf(old).x, now.bottom() > old.bottom() ? old.bottom() + 2 : old.top() - 3};
    const bool isLeftFree = now.left() != old.left();
    const QColor mixed = seen(isLeftFree ? left : below);
    EXPECT_GT(mixed.red(), 60);
    EXPECT_GT(mixed.blue(), 60);
    expectBlueBut({old, now}, "fading");
    run(1);
    expectBlueBut({saver.movieView()->frame()}, "after the fade");
}

TEST_F(MySaverAboveTest, bounce_blendsEachStillWithTheBackground)
{
    set("PartialMode", "1");
    set("Fadeout", "1");
    describe("a.mov", {.naturalSize = {640, 360}, .seconds = 1000, .colour = Qt::white});
    setPlaylist({"a.mov"});
    auto& saver = started();
    const Rect first = saver.movieView()->frame();
    runSettled(saver, 10);
    ASSERT_EQ(saver.snapshot().trail, 1);
    const Rect now = saver.movieView()->frame();
    const Point corner{now.left() > first.left() ? first.left() + 2 : first.right() - 3,
                       now.bottom() > first.bottom() ? first.bottom() + 2 : first.top() - 3};
    // Drawn about ten times, a fiftieth fainter each time, never over what was drawn before.
    const QColor mixed = seen(corner);
    EXPECT_NEAR(mixed.red(), 255 * 0.82, 255 * 0.05);
    EXPECT_EQ(mixed.blue(), 255);
}

TEST_F(MySaverAboveTest, bounce_throwsTheMoviesShadowOnTheBackground)
{
    set("PartialMode", "1");
    setGoodPlaylist({"a.mov"}, 10000);
    auto& saver = started();
    runSettled(saver, 1);
    const Rect movie = saver.movieView()->frame();
    EXPECT_LT(seen({movie.left() + 20, movie.bottom() - 2}).blue(), 230);
    EXPECT_EQ(seen({movie.left() + 20, movie.bottom() - 20}), QColor(Qt::blue));
}

TEST_F(MySaverAboveTest, bounce_leavesNothingButTheTrailOnTheBackground)
{
    set("PartialMode", "1");
    set("Fadeout", "1");
    setGoodPlaylist({"a.mov"}, 10000);
    auto& saver = started();
    std::vector<Rect> stills;
    for (int i = 0; i < 300; ++i) {
        const Rect before = saver.movieView()->frame();
        const int trail = saver.snapshot().trail;
        const bool takes = i % 11 == 0;
        runSettled(saver, 1);
        if (takes) stills.insert(stills.begin(), before);
        if (stills.size() > 5) stills.pop_back();
        ASSERT_GE(saver.snapshot().trail, trail);
        if (i % 7 != 0) continue;
        std::vector<Rect> covered = stills;
        covered.push_back(withShadow(saver.movieView()->frame()));
        expectBlueBut(covered, "bouncing");
    }
    EXPECT_EQ(saver.snapshot().trail, 5);
}

TEST_F(MySaverAboveTest, sign_isHalfOpaqueOverTheBackground_andLeavesNoTrace)
{
    setPlaylist({});
    auto& saver = started();
    for (int i = 0; i < 120; ++i) {
        ASSERT_TRUE(saver.snapshot().sign);
        const Rect sign = *saver.snapshot().sign;
        // The sign's own edge is black.
        const QColor edge = seen({sign.left() + 3, sign.bottom() + 3});
        ASSERT_NEAR(edge.blue(), 127, 3) << i;
        ASSERT_EQ(edge.red(), 0) << i;
        if (i % 10 == 0) expectBlueBut({sign}, "sign");
        run(0.1);
    }
}

TEST_F(MySaverAboveTest, sign_takesTheTrailsPlace_whenNoMovieIsLeft)
{
    set("PartialMode", "1");
    set("Fadeout", "1");
    setPlaylist({"a.mov", "late.mov"});
    describe("a.mov", {.seconds = 1});
    describe("late.mov", {.loadsAfter = 1, .failsLoading = true});
    auto& saver = started();
    runSettled(saver, 15);
    EXPECT_GT(saver.snapshot().trail, 0);
    describe("a.mov", {.opens = false});
    describe("late.mov", {.loadsAfter = 1, .failsLoading = true});
    for (int i = 0; i < 200 && !saver.snapshot().sign; ++i)
        runSettled(saver, 1);
    ASSERT_TRUE(saver.snapshot().sign);
    expectBlueBut({*saver.snapshot().sign}, "after the last movie");
}

} // namespace kestro
