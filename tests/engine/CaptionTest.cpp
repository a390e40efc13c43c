// What stands in a corner of the screen while a movie plays.

#include "engine/Caption.h"

#include "engine/EngineTest.h"
#include "platform/display/surface/image/ImageSurface.h"

#include <QLocale>
#include <QSet>

namespace kestro {

namespace {

const CaptionOptions title{.showsTitle = true, .showsClock = false};
const CaptionOptions clockAlone{.showsTitle = false, .showsClock = true};

class CaptionTest : public EngineTest {
protected:
    CaptionTest() { setGoodPlaylist({"a.mov", "b.mov"}, 7200); }

    MySaver& started(const CaptionOptions& options, bool isPreview = false)
    {
        caption = options;
        auto& saver = makeSaver(isPreview);
        saver.startAnimation();
        tick(saver, 2);
        return saver;
    }
    [[nodiscard]] const Window* shown() const { return windowOf(QStringLiteral("caption")); }
    /// What it shows, which differs from one text to the next.
    [[nodiscard]] QImage pixels() const { return shown()->shownPixels().copy(); }
};

} // namespace

TEST_F(CaptionTest, isNotThere_unlessItWasChosen)
{
    auto& saver = started({});
    tickFor(saver, 61);
    EXPECT_EQ(shown(), nullptr);
}

TEST_F(CaptionTest, isNotThere_inAPreview)
{
    started({.showsTitle = true, .showsClock = true}, true);
    EXPECT_EQ(shown(), nullptr);
}

TEST_F(CaptionTest, title_isThatOfTheMovie)
{
    auto& saver = started(title);
    ASSERT_NE(shown(), nullptr);
    desktop.mainScreen()->update();
    const QImage first = pixels();
    saver.changeMovie(MovieStep::Next);
    tick(saver, 3);
    desktop.mainScreen()->update();
    EXPECT_NE(pixels(), first);
    saver.changeMovie(MovieStep::Previous);
    tick(saver, 3);
    desktop.mainScreen()->update();
    EXPECT_EQ(pixels(), first);
}

TEST_F(CaptionTest, liesAboveTheMovie_afterAnotherOneCame)
{
    set("FullScreenMode", "0");
    set("PartialMode", "1");
    auto& saver = started(clockAlone);
    saver.changeMovie(MovieStep::Next);
    tick(saver, 3);
    EXPECT_EQ(desktop.mainScreen()->windows().back(), shown());
}

TEST_F(CaptionTest, isDrawnAnew_onlyWhenTheMinuteIsOver)
{
    clock.setWallTime(QDateTime(QDate(2026, 11, 22), QTime(21, 44, 30)));
    auto& saver = started(clockAlone);
    const auto before = shown()->identity();
    tickFor(saver, 29);
    EXPECT_EQ(shown()->identity(), before);
    tickFor(saver, 3);
    EXPECT_NE(shown()->identity(), before);
}

TEST_F(CaptionTest, movesEveryMinute_andIsNotDrawnAnewForIt)
{
    auto& saver = started(title);
    tickFor(saver, 5);
    const auto before = shown()->identity();
    QSet<QPair<float, float>> places;
    for (int minute = 0; minute < 20; ++minute) {
        places.insert({shown()->frame().origin.x, shown()->frame().origin.y});
        tickFor(saver, 60);
    }
    EXPECT_EQ(places.size(), 20);
    EXPECT_EQ(shown()->identity(), before);
}

TEST_F(CaptionTest, isWithinTheScreen_atEveryPlace)
{
    auto& saver = started({.showsTitle = true, .showsClock = true});
    const Rect screen = desktop.mainScreen()->frame();
    for (int minute = 0; minute < 20; ++minute) {
        EXPECT_EQ(intersectionRect(shown()->frame(), screen), shown()->frame()) << minute;
        tickFor(saver, 60);
    }
}

TEST_F(CaptionTest, title_goesWithTheMovie_whereNoneCanBePlayed)
{
    setPlaylist({"missing.mov"});
    started(title);
    EXPECT_EQ(shown(), nullptr);
}

TEST_F(CaptionTest, goes_whileNothingIsToBeSeen_andComesBack)
{
    auto& saver = started(title);
    saver.rest(Rest::Off);
    EXPECT_EQ(shown(), nullptr);
    saver.rest(Rest::None);
    tick(saver);
    EXPECT_NE(shown(), nullptr);
}

TEST_F(CaptionTest, goes_whenTheSaverStops)
{
    started(title).stopAnimation();
    EXPECT_EQ(shown(), nullptr);
}

TEST_F(CaptionTest, costsNoPicture_betweenTwoMinutes)
{
    setPlaylist({}); // the sign moves elsewhere
    Caption lone(clockAlone, clock);
    auto* const screen = desktop.mainScreen();
    lone.tick(screen);
    screen->update();
    const int before = ImageDesktop::surfaceOf(*screen).presentCount();
    for (int i = 0; i < 100; ++i) {
        lone.tick(screen);
        screen->update();
    }
    EXPECT_EQ(ImageDesktop::surfaceOf(*screen).presentCount(), before);
}

} // namespace kestro
