// What is composed looks alike with every renderer: these tests run with each.

#include "platform/display/CompositorTest.h"

namespace kestro {

TEST_F(CompositorTest, movieOfOddWidth_losesNothingButTheRoundedColumn)
{
    Movie movie({{0, 0}, {61, 40}});
    makeWindow({{16, 10}, {61, 40}}, &movie.view);
    screen().update();
    EXPECT_FALSE(isDirect(movie.layer));
    EXPECT_EQ(movie.layer.targets.back().width, 62);
    EXPECT_TRUE(shows(movie.layer, {16, 78}, {16, 78, 61, 40}));
    EXPECT_EQ(at(77, 20), QColor(Qt::black));
}

TEST_F(CompositorTest, renderTargets_areAligned)
{
    Movie one({{0, 0}, {62, 40}});
    Movie two({{0, 0}, {61, 40}});
    makeWindow({{16, 10}, {62, 40}}, &one.view);
    makeWindow({{99, 10}, {61, 40}}, &two.view);
    screen().update();
    for (const FakeLayer* layer : {&one.layer, &two.layer}) {
        const PixelTarget& target = layer->targets.back();
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(target.pixels) % 64, 0U);
        EXPECT_EQ(target.stride % 64, 0);
        EXPECT_EQ(target.width % 2, 0);
    }
}

TEST_F(CompositorTest, newPicture_presentsTheMoviesVisiblePartOnly)
{
    Movie movie({{0, 0}, {64, 64}});
    FillView cover({{0, 0}, {64, 20}}, Qt::white);
    makeWindow({{32, 32}, {64, 64}}, &movie.view);
    makeWindow({{32, 32}, {64, 20}}, &cover);
    screen().update();
    movie.layer.announce();
    screen().update();
    EXPECT_EQ(surface().lastPresented(), QRegion(pixels({{32, 52}, {64, 44}})));
    EXPECT_EQ(at(40, 40), QColor(Qt::white));
    EXPECT_TRUE(isAllPresented());
}

TEST_F(CompositorTest, coveredMovie_isNeitherRenderedNorPresented)
{
    Movie movie({{0, 0}, {64, 64}});
    FillView cover({{0, 0}, {100, 100}}, Qt::white);
    makeWindow({{32, 20}, {64, 64}}, &movie.view);
    makeWindow({{20, 20}, {100, 100}}, &cover);
    screen().update();
    movie.layer.announce();
    screen().update();
    EXPECT_TRUE(movie.layer.targets.empty());
    EXPECT_EQ(surface().presentCount(), 1);
}

TEST_F(CompositorTest, movieInHiddenWindow_isNotRendered)
{
    Movie movie({{0, 0}, {64, 64}});
    Window& window = makeWindow({{32, 20}, {64, 64}}, &movie.view);
    window.orderOut();
    movie.layer.announce();
    screen().update();
    EXPECT_TRUE(movie.layer.targets.empty());
}

TEST_F(CompositorTest, bufferedMovie_isRenderedAgainForANewPictureOrSizeOnly)
{
    Movie movie({{0, 0}, {61, 40}});
    Window& window = makeWindow({{16, 10}, {61, 40}}, &movie.view);
    screen().update();
    window.setFrameOrigin({21, 10});
    screen().update();
    EXPECT_EQ(movie.layer.targets.size(), 1U);
    EXPECT_TRUE(shows(movie.layer, {21, 78}, {21, 78, 61, 40}));
    movie.layer.announce();
    screen().update();
    EXPECT_EQ(movie.layer.targets.size(), 2U);
    window.setFrameDisplay({{21, 10}, {63, 40}}, false);
    screen().update();
    EXPECT_EQ(movie.layer.targets.size(), 3U);
    EXPECT_EQ(movie.layer.targets.back().width, 64);
}

TEST_F(CompositorTest, layersOfAFaintWindow_mixWithWhatIsBelowTheWindowOnly)
{
    FillView white({{0, 0}, {256, 128}}, Qt::white);
    makeWindow({{0, 0}, {256, 128}}, &white);
    FillView ground({{0, 0}, {64, 64}}, Qt::red);
    View movie({{0, 0}, {64, 64}});
    FakeLayer layer(Qt::blue);
    ground.addSubview(movie);
    movie.setLayer(&layer);
    Window& faint = makeWindow({{32, 32}, {64, 64}}, &ground);
    faint.setAlphaValue(0.5F);
    screen().update();
    EXPECT_FALSE(isDirect(layer));
    EXPECT_NEAR(at(40, 40).red(), 127, 1);
    EXPECT_NEAR(at(40, 40).blue(), 255, 1);
}

TEST_F(CompositorTest, layers_lieInViewOrderAboveTheBackingStore)
{
    FillView ground({{0, 0}, {100, 100}}, Qt::red);
    View below({{10, 10}, {40, 40}});
    FillView between({{20, 20}, {40, 40}}, Qt::green);
    View above({{30, 30}, {40, 40}});
    FakeLayer blue(Qt::blue);
    FakeLayer white(Qt::white);
    ground.addSubview(below);
    ground.addSubview(between);
    ground.addSubview(above);
    below.setLayer(&blue);
    above.setLayer(&white);
    makeWindow({{0, 0}, {100, 100}}, &ground);
    screen().update();
    EXPECT_EQ(at(5, 5), QColor(Qt::red));
    EXPECT_EQ(at(25, 25), QColor(Qt::blue));
    EXPECT_EQ(at(55, 25), QColor(Qt::green));
    EXPECT_EQ(at(35, 35), QColor(Qt::white));
}

TEST_F(CompositorTest, layer_isCutAtWindowAndEverySuperview)
{
    View content({{0, 0}, {100, 100}});
    View frame({{20, 20}, {50, 50}});
    View movie({{-10, -10}, {300, 45}});
    FakeLayer layer(Qt::blue);
    content.addSubview(frame);
    frame.addSubview(movie);
    movie.setLayer(&layer);
    makeWindow({{0, 0}, {60, 100}}, &content);
    content.setFrameSize({100, 100});
    screen().update();
    EXPECT_EQ(at(20, 20), QColor(Qt::blue));
    EXPECT_EQ(at(59, 54), QColor(Qt::blue));
    EXPECT_EQ(at(19, 30), QColor(Qt::black));
    EXPECT_EQ(at(30, 19), QColor(Qt::black));
    EXPECT_EQ(at(60, 30), QColor(Qt::black));
    EXPECT_EQ(at(30, 55), QColor(Qt::black));
}

TEST_F(CompositorTest, layerWithoutPicture_leavesWhatStoodThere)
{
    FillView ground({{0, 0}, {64, 64}}, Qt::red);
    FakeLayer layer(Qt::blue);
    layer.setHasPicture(false);
    ground.setLayer(&layer);
    makeWindow({{32, 32}, {64, 64}}, &ground);
    screen().update();
    EXPECT_EQ(at(40, 40), QColor(Qt::red));
    layer.show(Qt::green);
    screen().update();
    EXPECT_EQ(at(40, 40), QColor(Qt::green));
}

TEST_F(CompositorTest, layerThatCannotDrawItsPicture_leavesWhatStoodThere)
{
    for (const float left : {32.0F, 33.0F}) { // straight into the surface, and through a buffer
        FillView ground({{0, 0}, {64, 64}}, Qt::red);
        FakeLayer layer(Qt::blue);
        ground.setLayer(&layer);
        makeWindow({{left, 32}, {64, 64}}, &ground);
        screen().update();
        ASSERT_EQ(at(40, 40), QColor(Qt::blue));
        layer.setBroken(true);
        layer.announce();
        screen().update();
        EXPECT_EQ(at(40, 40), QColor(Qt::red)) << left;
        windows.clear();
    }
}

TEST_F(CompositorTest, removedLayer_showsTheBackingStoreAgain)
{
    FillView ground({{0, 0}, {64, 64}}, Qt::red);
    FakeLayer layer(Qt::blue);
    ground.setLayer(&layer);
    makeWindow({{32, 32}, {64, 64}}, &ground);
    screen().update();
    ground.setLayer(nullptr);
    screen().update();
    EXPECT_EQ(at(40, 40), QColor(Qt::red));
    EXPECT_EQ(ground.drawn.size(), 1U);
}

TEST_F(CompositorTest, movieBeyondTheScreen_isCutAndNeverWrittenOutside)
{
    Movie movie({{0, 0}, {512, 256}});
    makeWindow({{-128, -64}, {512, 256}}, &movie.view);
    screen().update();
    EXPECT_FALSE(isDirect(movie.layer));
    EXPECT_TRUE(shows(movie.layer, {-128, -64}, {0, 0, 256, 128}));
}

TEST_F(CompositorTest, absurdlyLargeLayer_isLeftOut)
{
    FillView ground({{0, 0}, {64, 64}}, Qt::red);
    View movie({{-1e9F, -1e9F}, {3e9F, 3e9F}});
    FakeLayer layer(Qt::blue);
    ground.addSubview(movie);
    movie.setLayer(&layer);
    makeWindow({{32, 32}, {64, 64}}, &ground);
    screen().update();
    EXPECT_EQ(at(40, 40), QColor(Qt::red));
}

} // namespace kestro
