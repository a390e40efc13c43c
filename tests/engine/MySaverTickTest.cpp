// One tick after another: movement, re-placing, and the next entry.

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <cmath>

namespace kestro {

namespace {

/// Whether it leaves the area by a step at most, or by two in a corner, where one edge is turned at a time.
bool staysOn(const Rect& rect, const Rect& area)
{
    const float over = 2 * 8;
    return rect.left() >= area.left() - over && rect.bottom() >= area.bottom() - over &&
           rect.right() <= area.right() + over && rect.top() <= area.top() + over;
}

class MySaverTickTest : public EngineTest {
protected:
    void setFly(const char* reposition = "0")
    {
        set("FullScreenMode", "0");
        set("PartialMode", "0");
        set("Scale", "0.5");
        set("Reposition", reposition);
    }
    void setBounce()
    {
        set("FullScreenMode", "0");
        set("PartialMode", "1");
        set("Scale", "0.5");
    }
    MySaver& started()
    {
        auto& saver = makeSaver();
        saver.startAnimation();
        return saver;
    }
};

} // namespace

TEST_F(MySaverTickTest, fullScreen_neverMovesTheMovie)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = started();
    const Rect at = saver.movieView()->frame();
    tickFor(saver, 25);
    EXPECT_EQ(saver.movieView()->frame(), at);
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(movies.tried().size(), 1U);
}

TEST_F(MySaverTickTest, end_takesTheNextEntry)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    auto& saver = started();
    tickFor(saver, 1.9);
    EXPECT_EQ(playing(saver), "a.mov");
    tickFor(saver, 0.2);
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
    tickFor(saver, 2.1);
    EXPECT_EQ(playing(saver), "a.mov");
}

TEST_F(MySaverTickTest, end_placesTheNextEntryByItsOwnSize)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    describe("b.mov", {.naturalSize = {640, 480}});
    auto& saver = started();
    tickFor(saver, 2.1);
    EXPECT_EQ(saver.movieView()->frame(), (Rect{{240, 0}, {1440, 1080}}));
}

TEST_F(MySaverTickTest, end_loopsTheMovieFromThenOn_whenNoOtherEntryOpens)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    describe("b.mov", {.opens = false});
    auto& saver = started();
    tickFor(saver, 2.1);
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_TRUE(saver.movieView()->movie()->attribute(MovieAttribute::Loops));
    const auto tries = movies.tried().size();
    tickFor(saver, 6);
    EXPECT_EQ(movies.tried().size(), tries);
}

TEST_F(MySaverTickTest, end_turnsTheMovieFromThenOn_withBackAndForth)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    set("BackAndForth", "1");
    describe("b.mov", {.opens = false});
    auto& saver = started();
    tickFor(saver, 2.1);
    EXPECT_TRUE(saver.movieView()->movie()->attribute(MovieAttribute::LoopsBackAndForth));
}

TEST_F(MySaverTickTest, end_setsNoLoop_whenTheListHoldsTrailers)
{
    trailers.trailers = {urlOf("t.mov")};
    describe("t.mov", {.seconds = 2});
    set("FileList", QVariantList{"auto://LatestTrailers/6/480"});
    auto& saver = started();
    // The only entry loops from the start; taken again after a switch it keeps what it had.
    saver.movieView()->setLoopMode(LoopMode::Normal);
    tickFor(saver, 2.1);
    EXPECT_EQ(playing(saver), "t.mov");
    EXPECT_FALSE(saver.movieView()->movie()->attribute(MovieAttribute::Loops));
    EXPECT_EQ(trailers.scans, 1);
}

TEST_F(MySaverTickTest, end_playsTheMovieAgain_whenNothingElseOpensAnyMore)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    auto& saver = started();
    describe("a.mov", {.opens = false});
    describe("b.mov", {.opens = false});
    tickFor(saver, 2.1);
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
}

TEST_F(MySaverTickTest, fly_movesEveryInterval)
{
    setGoodPlaylist({"a.mov"}, 100);
    setFly();
    auto& saver = started();
    const Rect first = saver.movieView()->frame();
    EXPECT_EQ(first.size, (Size{320, 180}));
    tickFor(saver, 3.95);
    EXPECT_EQ(saver.movieView()->frame(), first);
    tick(saver, 2);
    const Rect second = saver.movieView()->frame();
    EXPECT_NE(second, first);
    EXPECT_EQ(second.size, first.size);
    tickFor(saver, 3.95);
    EXPECT_EQ(saver.movieView()->frame(), second);
    tick(saver, 2);
    EXPECT_NE(saver.movieView()->frame(), second);
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
}

TEST_F(MySaverTickTest, fly_waitsUntilMoreThanTheIntervalWentBy)
{
    setGoodPlaylist({"a.mov"}, 100);
    setFly();
    set("Interval", "2.000000");
    auto& saver = started();
    const Rect first = saver.movieView()->frame();
    clock.advance(2.0);
    saver.animateOneFrame();
    EXPECT_EQ(saver.movieView()->frame(), first);
    clock.advance(0.001);
    saver.animateOneFrame();
    EXPECT_NE(saver.movieView()->frame(), first);
}

TEST_F(MySaverTickTest, fly_keepsThePictureInsideTheView)
{
    setGoodPlaylist({"a.mov"}, 1000);
    setFly();
    set("Interval", "0.000000");
    auto& saver = started();
    for (int i = 0; i < 200; ++i) {
        tick(saver);
        const Rect at = saver.movieView()->frame();
        ASSERT_TRUE(at.left() >= 0 && at.bottom() >= 0 && at.right() <= 1920 && at.top() <= 1080);
    }
}

TEST_F(MySaverTickTest, fly_leavesNoTraceWhereTheMovieWas)
{
    setGoodPlaylist({"a.mov"}, 100);
    setFly();
    auto& saver = started();
    const Rect first = saver.movieView()->frame();
    const auto middle = [](const Rect& rect) {
        return QPoint(static_cast<int>(rect.left() + rect.size.width / 2),
                      static_cast<int>(rect.bottom() + rect.size.height / 2));
    };
    EXPECT_EQ(pixelAt(middle(first).x(), middle(first).y()), QColor(Qt::red));
    do
        tickFor(saver, 4.1);
    while (!intersectionRect(first, saver.movieView()->frame()).isEmpty());
    const Rect second = saver.movieView()->frame();
    EXPECT_EQ(pixelAt(middle(first).x(), middle(first).y()), QColor(Qt::black));
    EXPECT_EQ(pixelAt(middle(second).x(), middle(second).y()), QColor(Qt::red));
}

TEST_F(MySaverTickTest, fly_movesAtTheMoviesEndOnly_withRepositionAtTheEnd)
{
    setGoodPlaylist({"a.mov"}, 10);
    setFly("1");
    auto& saver = started();
    const Rect first = saver.movieView()->frame();
    tickFor(saver, 9.9);
    EXPECT_EQ(saver.movieView()->frame(), first);
    tickFor(saver, 0.2);
    EXPECT_NE(saver.movieView()->frame(), first);
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(movies.tried().size(), 2U);
}

TEST_F(MySaverTickTest, preview_fliesWhereTheSaverBounces)
{
    setGoodPlaylist({"a.mov"}, 100);
    setBounce();
    auto& saver = makeSaver(true, 0, {480, 270});
    saver.startAnimation();
    const Rect first = saver.movieView()->frame();
    EXPECT_EQ(first.size, (Size{80, 45}));
    tickFor(saver, 3.9);
    EXPECT_EQ(saver.movieView()->frame(), first);
    tickFor(saver, 0.3);
    EXPECT_NE(saver.movieView()->frame(), first);
}

TEST_F(MySaverTickTest, stillPartial_neitherFliesNorBounces)
{
    setGoodPlaylist({"a.mov"}, 100);
    setFly();
    set("PartialMode", "2");
    auto& saver = started();
    const Rect first = saver.movieView()->frame();
    EXPECT_EQ(first.size, (Size{320, 180}));
    tickFor(saver, 9);
    EXPECT_EQ(saver.movieView()->frame(), first);
}

TEST_F(MySaverTickTest, bounce_movesTheWindowByAStepEachTickAndNeverLeavesByMoreThanOne)
{
    setGoodPlaylist({"a.mov"}, 10000);
    setBounce();
    auto& saver = started();
    Rect last = saver.movieView()->frame();
    int turns = 0;
    Point step{};
    for (int i = 0; i < 2000; ++i) {
        tick(saver);
        const Rect now = saver.movieView()->frame();
        const Point moved{now.origin.x - last.origin.x, now.origin.y - last.origin.y};
        ASSERT_TRUE(std::abs(moved.x) >= 4 && std::abs(moved.x) <= 8);
        ASSERT_TRUE(std::abs(moved.y) >= 4 && std::abs(moved.y) <= 8);
        ASSERT_TRUE(staysOn(now, {{0, 0}, {1920, 1080}}));
        turns += i > 0 && moved != step;
        step = moved;
        last = now;
    }
    EXPECT_GT(turns, 10);
}

TEST_F(MySaverTickTest, bounce_staysOnItsOwnScreen)
{
    desktop.addScreen({{-800, 240}, {800, 600}});
    setGoodPlaylist({"a.mov"}, 10000);
    setBounce();
    auto& saver = makeSaver(false, 1, {800, 600});
    saver.startAnimation();
    for (int i = 0; i < 500; ++i) {
        tick(saver);
        const Rect now = saver.movieView()->frame();
        ASSERT_TRUE(staysOn(now, {{-800, 240}, {800, 600}}));
    }
    const auto shot = saver.snapshot();
    EXPECT_EQ(shot.movie->frame.origin.x, saver.movieView()->frame().origin.x + 800);
    EXPECT_EQ(shot.movie->frame.origin.y, saver.movieView()->frame().origin.y - 240);
}

TEST_F(MySaverTickTest, bounce_goesAlong_whenItsScreenMoves)
{
    setGoodPlaylist({"a.mov"}, 10000);
    setBounce();
    auto& other = desktop.addScreen({{1920, 300}, {800, 600}});
    auto& saver = makeSaver(false, 1, {800, 600});
    saver.startAnimation();
    const Rect before = saver.movieView()->frame();
    desktop.resizeScreen(other, {{0, -100}, {800, 600}});
    EXPECT_EQ(saver.movieView()->frame(), before.movedBy({-1920, -400}));
    tick(saver);
    const Rect after = saver.movieView()->frame();
    EXPECT_LE(std::abs(after.origin.x - (before.origin.x - 1920)), 8);
    EXPECT_LE(std::abs(after.origin.y - (before.origin.y - 400)), 8);
}

TEST_F(MySaverTickTest, remoteMovie_isPlacedOnceItsSizeIsKnown)
{
    setPlaylist({"far.mov", "b.mov"});
    describe("far.mov", {.loadsAfter = 3});
    auto& saver = started();
    EXPECT_EQ(saver.movieView()->frame(), Rect{});
    tickFor(saver, 2.9);
    EXPECT_EQ(saver.movieView()->frame(), Rect{});
    EXPECT_EQ(playing(saver), "far.mov");
    tickFor(saver, 0.2);
    EXPECT_EQ(saver.movieView()->frame(), (Rect{{0, 0}, {1920, 1080}}));
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
}

TEST_F(MySaverTickTest, gap_showsTheLastPictureUntilTheNextMovieHasOne)
{
    setPlaylist({"a.mov", "far.mov"});
    describe("a.mov", {.seconds = 2, .colour = Qt::red});
    describe("far.mov", {.colour = Qt::green, .loadsAfter = 1});
    auto& saver = started();
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::red));
    tickFor(saver, 2.1);
    EXPECT_EQ(playing(saver), "far.mov");
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::red));
    tickFor(saver, 0.8);
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::red));
    tickFor(saver, 0.3);
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::green));
}

TEST_F(MySaverTickTest, sign_bouncesInsideTheViewAndLeavesNoTrace)
{
    auto& saver = started();
    Rect last = *saver.snapshot().sign;
    for (int i = 0; i < 600; ++i) {
        tick(saver);
        const Rect now = *saver.snapshot().sign;
        ASSERT_TRUE(std::abs(now.origin.x - last.origin.x) >= 4 &&
                    std::abs(now.origin.x - last.origin.x) <= 8);
        ASSERT_TRUE(staysOn(now, {{0, 0}, {1920, 1080}}));
        last = now;
    }
    int bright = 0;
    for (int x = 0; x < 1920; x += 4)
        for (int y = 0; y < 1080; y += 4) {
            const bool inSign = x >= last.left() && x < last.right() && y >= last.bottom() && y < last.top();
            if (inSign)
                bright += pixelAt(x, y).lightness() > 100;
            else
                ASSERT_EQ(pixelAt(x, y), QColor(Qt::black)) << x << ' ' << y;
        }
    EXPECT_GT(bright, 20);
}

TEST_F(MySaverTickTest, tick_doesNothing_beforeTheStart)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver();
    tick(saver, 3);
    EXPECT_EQ(saver.movieView(), nullptr);
    EXPECT_FALSE(saver.snapshot().sign);
    EXPECT_TRUE(movies.tried().empty());
}

} // namespace kestro
