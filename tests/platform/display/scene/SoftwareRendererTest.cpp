// A movie that is rendered straight into the surface.

#include "platform/display/scene/SoftwareRenderer.h"

#include "platform/display/CompositorTest.h"

namespace kestro {

namespace {

using SoftwareRendererTest = CompositorTest;

} // namespace

TEST_F(SoftwareRendererTest, fullScreenMovieTwoPointsLower_isRenderedStraightIntoTheSurface)
{
    FillView ground({{0, 0}, {256, 128}}, Qt::red);
    View movie({{0, -2}, {256, 128}});
    FakeLayer layer;
    ground.addSubview(movie);
    movie.setLayer(&layer);
    makeWindow({{0, 0}, {256, 128}}, &ground);
    screen().update();

    ASSERT_TRUE(isDirect(layer));
    EXPECT_EQ(layer.targets.back().height, 128);
    EXPECT_TRUE(shows(layer, {0, 2}, {0, 2, 256, 126}));
    EXPECT_EQ(at(100, 127), QColor(Qt::red));
    EXPECT_EQ(at(100, 126), QColor(Qt::red));
    EXPECT_TRUE(isAllPresented());
}

TEST_F(SoftwareRendererTest, spillOfADirectMovie_isRepairedWhereASuperviewCutsIt)
{
    FillView ground({{0, 0}, {256, 128}}, Qt::red);
    View frame({{32, 40}, {64, 40}});
    View movie({{0, -2}, {64, 40}});
    FakeLayer layer;
    ground.addSubview(frame);
    frame.addSubview(movie);
    movie.setLayer(&layer);
    makeWindow({{0, 0}, {256, 128}}, &ground);
    screen().update();
    ASSERT_TRUE(isDirect(layer));
    const QPoint place(32, 128 - 78);
    EXPECT_TRUE(shows(layer, place, {32, 50, 64, 38}));
    EXPECT_EQ(at(50, 39), QColor(Qt::red)); // written over by the movie's last two rows
    EXPECT_EQ(at(50, 38), QColor(Qt::red));
    EXPECT_EQ(at(50, 79), QColor(Qt::red));

    layer.announce();
    screen().update();
    EXPECT_EQ(at(50, 39), QColor(Qt::red));
    EXPECT_EQ(surface().lastPresented(), QRegion(32, 50, 64, 38));
    EXPECT_TRUE(isAllPresented());
}

TEST_F(SoftwareRendererTest, directAndIndirectMovies_lookTheSamePixelForPixel)
{
    Movie direct({{0, 0}, {62, 41}});
    Movie indirect({{0, 0}, {62, 41}});
    makeWindow({{16, 10}, {62, 41}}, &direct.view);
    makeWindow({{101, 10}, {62, 41}}, &indirect.view);
    screen().update();
    EXPECT_TRUE(isDirect(direct.layer));
    EXPECT_FALSE(isDirect(indirect.layer));
    EXPECT_EQ(surface().image().copy(16, 0, 62, 128), surface().image().copy(101, 0, 62, 128));
    EXPECT_TRUE(shows(direct.layer, {16, 77}, {16, 77, 62, 41}));
}

TEST_F(SoftwareRendererTest, whatLiesAboveADirectMovie_isPaintedOverItAgain)
{
    Movie movie({{0, 0}, {64, 64}});
    FillView sign({{0, 0}, {10, 10}}, Qt::white);
    makeWindow({{32, 32}, {64, 64}}, &movie.view);
    Window& above = makeWindow({{40, 40}, {10, 10}}, &sign);
    above.setAlphaValue(0.5F);
    screen().update();
    movie.layer.show(Qt::black);
    screen().update();
    ASSERT_TRUE(isDirect(movie.layer));
    EXPECT_NEAR(at(45, 45).red(), 128, 1);
    movie.layer.announce();
    screen().update();
    EXPECT_NEAR(at(45, 45).red(), 128, 1);
    EXPECT_EQ(at(60, 60), QColor(Qt::black));
}

TEST_F(SoftwareRendererTest, movieBelowTheGuardRows_isNotRenderedStraight)
{
    Movie within({{0, 0}, {64, 64}});
    Movie beyond({{0, 0}, {64, 64}});
    makeWindow({{0, -8}, {64, 64}}, &within.view);
    makeWindow({{128, -9}, {64, 64}}, &beyond.view);
    screen().update();
    EXPECT_FALSE(isDirect(beyond.layer));
    EXPECT_TRUE(shows(beyond.layer, {128, 73}, {128, 73, 64, 55}));
    windows.back()->orderOut();
    within.layer.announce();
    screen().update();
    EXPECT_TRUE(isDirect(within.layer));
    EXPECT_TRUE(shows(within.layer, {0, 72}, {0, 72, 64, 56}));
}

} // namespace kestro
