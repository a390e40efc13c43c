// One movie that dissolves into the next one.

#include "engine/Dissolve.h"

#include "engine/EngineTest.h"
#include "presentation/MovieFrame.h"

#include <algorithm>

namespace kestro {

namespace {

class DissolveTest : public EngineTest {
protected:
    static Picture red()
    {
        QImage image(64, 36, QImage::Format_RGB32);
        image.fill(Qt::red);
        return {image, {64, 36}};
    }
    void begin(Dissolve& dissolve, const Picture& picture = red())
    {
        dissolve.begin(picture, place, desktop.mainScreen(), [this] { return m_hasBegun; });
    }

    const Rect place{{300, 200}, {640, 360}};
    bool m_hasBegun = true;
};

class MySaverDissolveTest : public EngineTest {
protected:
    MySaverDissolveTest()
    {
        setPlaylist({"red.mov", "green.mov"});
        describe("red.mov", {.naturalSize = {1920, 1080}, .seconds = 2});
        describe("green.mov", {.naturalSize = {1920, 1080}, .seconds = 8, .colour = Qt::green});
    }
    MySaver& started(double seconds)
    {
        movieOptions.dissolveSeconds = seconds;
        auto& saver = makeSaver();
        saver.startAnimation();
        return saver;
    }
    [[nodiscard]] bool isDissolving()
    {
        const auto& windows = desktop.mainScreen()->windows();
        return std::ranges::any_of(windows,
                                   [](const Window* window) { return window->kind() == u"dissolve"; });
    }
};

} // namespace

TEST_F(DissolveTest, showsNothing_whereItTakesNoTime)
{
    Dissolve dissolve(0, timers, clock);
    begin(dissolve);
    EXPECT_FALSE(dissolve.isWanted());
    EXPECT_FALSE(dissolve.isRunning());
    EXPECT_EQ(pixelAt(400, 300), QColor(Qt::black));
}

TEST_F(DissolveTest, showsNothing_whereThereIsNoPicture)
{
    Dissolve dissolve(1, timers, clock);
    begin(dissolve, {});
    EXPECT_FALSE(dissolve.isRunning());
}

TEST_F(DissolveTest, fadesEvenly_atItsPlace)
{
    Dissolve dissolve(3, timers, clock);
    begin(dissolve);
    EXPECT_EQ(dissolve.shownWindow()->frame(), place);
    EXPECT_EQ(dissolve.shownWindow()->level(), WindowLevel::Shielding);
    EXPECT_EQ(pixelAt(301, 201), QColor(Qt::red));
    EXPECT_EQ(pixelAt(298, 201), QColor(Qt::black));
    timers.advance(1 / 30.0); // it begins to fade
    for (const double left : {2 / 3.0, 1 / 3.0}) {
        timers.advance(1);
        EXPECT_NEAR(dissolve.shownWindow()->alphaValue(), left, 0.02);
        EXPECT_NEAR(pixelAt(400, 300).redF(), left, 0.02);
    }
    timers.advance(1.05);
    EXPECT_FALSE(dissolve.isRunning());
    EXPECT_EQ(pixelAt(400, 300), QColor(Qt::black));
}

TEST_F(DissolveTest, staysSolid_untilTheNextMovieBegan)
{
    m_hasBegun = false;
    Dissolve dissolve(1, timers, clock);
    begin(dissolve);
    timers.advance(Dissolve::patience - 0.1);
    EXPECT_EQ(dissolve.shownWindow()->alphaValue(), 1.0F);
    m_hasBegun = true;
    timers.advance(0.05);
    timers.advance(0.5);
    EXPECT_NEAR(dissolve.shownWindow()->alphaValue(), 0.5, 0.04);
}

TEST_F(DissolveTest, fadesAllTheSame_whereTheNextMovieNeverBegins)
{
    m_hasBegun = false;
    Dissolve dissolve(1, timers, clock);
    begin(dissolve);
    timers.advance(Dissolve::patience + 0.1);
    timers.advance(1.1);
    EXPECT_FALSE(dissolve.isRunning());
}

TEST_F(DissolveTest, end_takesThePictureAwayInItsMiddle)
{
    Dissolve dissolve(1, timers, clock);
    begin(dissolve);
    timers.advance(0.3);
    dissolve.end();
    EXPECT_FALSE(dissolve.isRunning());
    EXPECT_EQ(pixelAt(400, 300), QColor(Qt::black));
}

TEST_F(MySaverDissolveTest, aMovieCutsToTheNextOne_unlessItWasChosen)
{
    auto& saver = started(0);
    tickFor(saver, 2.2);
    EXPECT_EQ(playing(saver), "green.mov");
    EXPECT_FALSE(isDissolving());
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::green));
}

TEST_F(MySaverDissolveTest, aMovieFadesOverTheNextOne)
{
    auto& saver = started(1);
    EXPECT_FALSE(isDissolving());
    tickFor(saver, 2.05);
    ASSERT_EQ(playing(saver), "green.mov");
    EXPECT_TRUE(isDissolving());
    EXPECT_GT(pixelAt(960, 540).red(), 200);
    tickFor(saver, 0.5);
    EXPECT_NEAR(pixelAt(960, 540).redF(), 0.5, 0.1);
    EXPECT_NEAR(pixelAt(960, 540).greenF(), 0.5, 0.1);
    tickFor(saver, 0.7);
    EXPECT_FALSE(isDissolving());
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::green));
}

TEST_F(MySaverDissolveTest, aWindowWithATrailLeavesThatAlone)
{
    set("FullScreenMode", "0");
    set("PartialMode", "1");
    set("Fadeout", "1");
    auto& saver = started(1);
    tickFor(saver, 2.2);
    EXPECT_EQ(playing(saver), "green.mov");
    EXPECT_FALSE(isDissolving());
}

TEST_F(MySaverDissolveTest, ends_whenTheSaverStopsOrRests)
{
    auto& saver = started(1);
    tickFor(saver, 2.2);
    ASSERT_TRUE(isDissolving());
    saver.rest(Rest::Held);
    EXPECT_FALSE(isDissolving());
    saver.rest(Rest::None);
    tickFor(saver, 8.2);
    ASSERT_TRUE(isDissolving());
    saver.stopAnimation();
    EXPECT_FALSE(isDissolving());
}

} // namespace kestro
