#include "engine/FadeOut.h"

#include "engine/EngineTest.h"
#include "platform/display/desktop/ImageDesktop.h"

namespace kestro {

namespace {

class FadeOutTest : public EngineTest {
protected:
    FadeOutTest() { fade.open(desktop.mainScreen()); }

    static Picture still(QColor colour)
    {
        QImage image(64, 36, QImage::Format_RGB32);
        image.fill(colour);
        return {image, {64, 36}};
    }

    FadeOut fade{timers};
    const Rect place{{300, 200}, {640, 360}};
};

} // namespace

TEST_F(FadeOutTest, open_parksAnEmptyTransparentWindowAtTheShieldingLevel)
{
    const auto& window = *fade.backWindow();
    EXPECT_EQ(window.frame(), (Rect{{0, 0}, {1, 1}}));
    EXPECT_EQ(window.level(), WindowLevel::Shielding);
    EXPECT_FALSE(window.isOpaque());
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(fade.isReady());
}

TEST_F(FadeOutTest, leaveBehind_showsTheStillAtItsPlaceScaled)
{
    fade.leaveBehind(still(Qt::red), place);
    EXPECT_EQ(fade.backWindow()->frame(), place);
    EXPECT_EQ(pixelAt(301, 201), QColor(Qt::red));
    EXPECT_EQ(pixelAt(938, 558), QColor(Qt::red));
    EXPECT_EQ(pixelAt(298, 201), QColor(Qt::black));
}

TEST_F(FadeOutTest, fadeoutWindow_losesATwentiethAStepAndParksAfterTheTwentieth)
{
    fade.leaveBehind(still(Qt::red), place);
    EXPECT_EQ(fade.backWindow()->alphaValue(), 1.0F);
    for (int step = 1; step < 20; ++step) {
        timers.advance(0.05);
        ASSERT_TRUE(fade.isFading()) << step;
        EXPECT_NEAR(fade.backWindow()->alphaValue(), 1.0 - 0.05 * step, 1e-5);
        EXPECT_EQ(fade.backWindow()->frame(), place);
    }
    timers.advance(0.05);
    EXPECT_FALSE(fade.isFading());
    EXPECT_EQ(fade.backWindow()->alphaValue(), 1.0F);
    EXPECT_EQ(fade.backWindow()->frame(), (Rect{{0, 0}, {1, 1}}));
    EXPECT_EQ(pixelAt(400, 300), QColor(Qt::black));
}

TEST_F(FadeOutTest, fadeoutWindow_isSeenOnTheScreen)
{
    fade.leaveBehind(still(Qt::red), place);
    timers.advance(0.5);
    EXPECT_NEAR(pixelAt(400, 300).red(), 128, 2);
}

TEST_F(FadeOutTest, secondsLeft_isWhenTheFadeWillBeOver)
{
    EXPECT_EQ(fade.secondsLeft(), 0);
    fade.leaveBehind(still(Qt::red), place);
    EXPECT_NEAR(fade.secondsLeft(), 1, 1e-5);
    timers.advance(0.6);
    EXPECT_NEAR(fade.secondsLeft(), 0.4, 1e-5);
    timers.advance(0.4);
    EXPECT_EQ(fade.secondsLeft(), 0);
}

TEST_F(FadeOutTest, leaveBehind_isRefused_whileAFadeRuns)
{
    fade.leaveBehind(still(Qt::red), place);
    timers.advance(0.2);
    EXPECT_FALSE(fade.isReady());
    fade.leaveBehind(still(Qt::green), {{0, 0}, {64, 36}});
    EXPECT_EQ(fade.backWindow()->frame(), place);
    EXPECT_NEAR(fade.backWindow()->alphaValue(), 0.8, 1e-5);
}

TEST_F(FadeOutTest, leaveBehind_parksAndFadesNothing_withoutAPicture)
{
    fade.leaveBehind({}, place);
    EXPECT_EQ(fade.backWindow()->frame(), (Rect{{0, 0}, {1, 1}}));
    EXPECT_TRUE(fade.isFading());
    EXPECT_EQ(pixelAt(400, 300), QColor(Qt::black));
}

TEST_F(FadeOutTest, startFadeout_beginsAnewFromSolid)
{
    fade.leaveBehind(still(Qt::red), place);
    timers.advance(0.4);
    fade.startFadeout();
    EXPECT_EQ(fade.backWindow()->alphaValue(), 1.0F);
    timers.advance(0.05);
    EXPECT_NEAR(fade.backWindow()->alphaValue(), 0.95, 1e-5);
}

TEST_F(FadeOutTest, close_endsTheFadeAndLeavesNothingReady)
{
    fade.leaveBehind(still(Qt::red), place);
    fade.close();
    EXPECT_FALSE(fade.isFading());
    EXPECT_FALSE(fade.isReady());
    EXPECT_EQ(fade.backWindow(), nullptr);
    EXPECT_EQ(pixelAt(400, 300), QColor(Qt::black));
    fade.startFadeout();
    EXPECT_FALSE(fade.isFading());
}

} // namespace kestro
