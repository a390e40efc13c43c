#include "presentation/KTMovieWindow.h"

#include "presentation/PresentationTest.h"

namespace kestro {

namespace {

class KTMovieWindowTest : public PresentationTest {
protected:
    Screen& right = desktop.addScreen({{1920, 0}, {800, 600}});
    KTMovieWindow window{{{100, 50}, {320, 180}}, right, {desktop, &web}};
};

} // namespace

TEST_F(KTMovieWindowTest, construction_countsTheRectangleFromTheScreensOrigin)
{
    EXPECT_EQ(window.frame(), (Rect{{2020, 50}, {320, 180}}));
    EXPECT_EQ(window.contentView()->frame(), (Rect{{0, 0}, {320, 180}}));
    EXPECT_EQ(window.screen(), &right);
}

TEST_F(KTMovieWindowTest, construction_makesATransparentWindowAtTheShieldingLevel)
{
    EXPECT_TRUE(window.hasShadow());
    EXPECT_FALSE(window.isOpaque());
    EXPECT_EQ(window.backgroundColor(), QColor(Qt::transparent));
    EXPECT_EQ(window.level(), WindowLevel::Shielding);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(KTMovieWindowTest, setFrameDisplay_fillsTheWindowWithTheMovieAgain)
{
    window.setFrameDisplay({{1930, 20}, {200, 100}}, true);
    EXPECT_EQ(static_cast<const MovieFrame&>(window).frame(), (Rect{{1930, 20}, {200, 100}}));
    EXPECT_EQ(window.contentView()->frame(), (Rect{{0, 0}, {200, 100}}));
    window.setFrameOrigin({1940, 30});
    EXPECT_EQ(window.frame(), (Rect{{1940, 30}, {200, 100}}));
}

TEST_F(KTMovieWindowTest, playback_isHandedOnUnchanged)
{
    MovieFrame& frame = window;
    const auto shown = movie({.naturalSize = {400, 300}, .seconds = 3});
    frame.setMovie(shown);
    EXPECT_EQ(frame.movie(), shown);
    EXPECT_EQ(frame.movieRect(), (Rect{{0, 0}, {320, 180}}));
    EXPECT_EQ(frame.sizeWithScale(2), (Size{400, 300}));
    frame.setVolume(0.5F);
    frame.setMuted(true);
    EXPECT_EQ(frame.volume(), 0.5F);
    EXPECT_TRUE(frame.isMuted());
    frame.setLoopMode(LoopMode::Looping);
    EXPECT_TRUE(shown->attribute(MovieAttribute::Loops));
    frame.setLoopMode(LoopMode::Normal);
    frame.showControllerAdjustingSize(true, true);
    frame.start(nullptr);
    EXPECT_TRUE(frame.isPlaying());
    clock.advance(1);
    frame.stop(nullptr);
    EXPECT_EQ(shown->currentTime().timeValue, 600);
    frame.keepPlaying();
    frame.start(nullptr);
    EXPECT_TRUE(frame.isPlaying());
    clock.advance(3);
    EXPECT_FALSE(frame.isPlaying());
}

} // namespace kestro
