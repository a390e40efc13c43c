// The shadow of a window, with each renderer.

#include "platform/display/view/WindowShadow.h"

#include "platform/display/CompositorTest.h"

namespace kestro {

namespace {

/// A window with a shadow over a white layer that fills the left half of the screen.
class WindowShadowTest : public CompositorTest {
protected:
    WindowShadowTest()
    {
        behind.setLayer(&hack);
        makeWindow({{0, 0}, {128, 128}}, &behind);
    }

    Window& makeCaster(const Rect& frame, View* content)
    {
        Window& window = makeWindow(frame, content);
        window.setHasShadow(true);
        screen().update();
        return window;
    }

    [[nodiscard]] bool isShaded(int x, int y) const { return at(x, y).lightness() < 250; }

    FakeLayer hack{Qt::white};
    View behind{{{0, 0}, {128, 128}}};
    FillView card{{{0, 0}, {40, 40}}, Qt::white};
};

} // namespace

TEST_F(WindowShadowTest, shadow_darkensTheLayerAround_mostBesideTheWindow)
{
    makeCaster({{40, 40}, {40, 40}}, &card);
    EXPECT_EQ(at(60, 60), QColor(Qt::white));
    EXPECT_LT(at(38, 60).lightness(), at(33, 60).lightness());
    EXPECT_TRUE(isShaded(38, 60));
    EXPECT_TRUE(isShaded(81, 60));
    EXPECT_EQ(at(20, 60), QColor(Qt::white));
    EXPECT_TRUE(isAllPresented());
}

TEST_F(WindowShadowTest, shadow_reachesFurtherDownThanUp)
{
    makeCaster({{40, 40}, {40, 40}}, &card);
    EXPECT_FALSE(isShaded(60, 80 + 9));
    EXPECT_TRUE(isShaded(60, 40 - 10));
}

TEST_F(WindowShadowTest, shadow_isCastOnWhatViewsDrew_too)
{
    FillView ground({{0, 0}, {128, 128}}, Qt::white);
    makeWindow({{128, 0}, {128, 128}}, &ground);
    makeCaster({{108, 40}, {40, 40}}, &card);
    EXPECT_TRUE(isShaded(106, 60));
    EXPECT_TRUE(isShaded(150, 60));
}

TEST_F(WindowShadowTest, shadow_isNotThere_unlessWanted)
{
    makeWindow({{40, 40}, {40, 40}}, &card);
    screen().update();
    EXPECT_EQ(at(38, 60), QColor(Qt::white));
}

TEST_F(WindowShadowTest, windowThatShowsNothingYet_castsNone)
{
    FakeLayer movie(Qt::red);
    movie.setHasPicture(false);
    View view({{0, 0}, {40, 40}});
    view.setLayer(&movie);
    makeCaster({{40, 40}, {40, 40}}, &view);
    EXPECT_EQ(at(38, 60), QColor(Qt::white));
    movie.show(Qt::red);
    screen().update();
    EXPECT_TRUE(isShaded(38, 60));
}

TEST_F(WindowShadowTest, shadow_movesWithItsWindow_andLeavesNothing)
{
    Window& window = makeCaster({{20, 40}, {40, 40}}, &card);
    window.setFrameOrigin({60, 40});
    screen().update();
    EXPECT_EQ(at(18, 60), QColor(Qt::white));
    EXPECT_TRUE(isShaded(58, 60));
    EXPECT_TRUE(isAllPresented());
    window.orderOut();
    screen().update();
    EXPECT_EQ(at(58, 60), QColor(Qt::white));
}

TEST_F(WindowShadowTest, shadow_fadesWithItsWindow)
{
    Window& window = makeCaster({{40, 40}, {40, 40}}, &card);
    const int solid = at(38, 60).lightness();
    window.setAlphaValue(0.3F);
    screen().update();
    EXPECT_GT(at(38, 60).lightness(), solid);
    EXPECT_TRUE(isShaded(38, 60));
}

TEST_F(WindowShadowTest, shadow_staysUnderAWindowWhoseFlushingIsDisabled)
{
    Window& window = makeCaster({{40, 40}, {40, 40}}, &card);
    window.disableFlushWindow();
    window.setFrameOrigin({80, 40});
    screen().update();
    EXPECT_TRUE(isShaded(38, 60));
    EXPECT_EQ(at(110, 60), QColor(Qt::white));
    window.enableFlushWindow();
    screen().update();
    EXPECT_EQ(at(38, 60), QColor(Qt::white));
}

TEST_F(WindowShadowTest, windowLargerThanTheScreen_castsNone)
{
    FillView large({{0, 0}, {300, 40}}, Qt::white);
    makeCaster({{-20, 40}, {300, 40}}, &large);
    EXPECT_EQ(at(60, 90), QColor(Qt::white));
}

TEST(WindowShadowImageTest, image_isClearUnderTheWindow_andAtItsOwnEdges)
{
    const QMargins reach = WindowShadow::reach(1);
    const QImage image = WindowShadow::image({50, 30}, 1);
    ASSERT_EQ(image.size(), QSize(50, 30).grownBy(reach));
    EXPECT_EQ(qAlpha(image.pixel(reach.left() + 25, reach.top() + 15)), 0);
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
    EXPECT_LT(qAlpha(image.pixel(0, image.height() / 2)), 4);
    EXPECT_GT(qAlpha(image.pixel(reach.left() - 1, image.height() / 2)), 100);
}

TEST(WindowShadowImageTest, reach_growsWithThePixelsOfAPoint)
{
    EXPECT_EQ(WindowShadow::reach(2), WindowShadow::reach(1) * 2);
}

TEST(WindowShadowImageTest, image_isNone_ofAnEmptyWindow)
{
    EXPECT_TRUE(WindowShadow::image({0, 30}, 1).isNull());
}

} // namespace kestro
