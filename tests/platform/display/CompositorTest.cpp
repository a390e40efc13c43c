#include "platform/display/Compositor.h"

#include "platform/display/DisplayTest.h"
#include "platform/display/Surface.h"

namespace kestro {

namespace {

/// Movies in windows over a screen of 256 by 128 pixels.
class CompositorTest : public DisplayTest {
protected:
    CompositorTest()
        : DisplayTest({{{0, 0}, {256, 128}}})
    {
    }

    /// Whether the layer's last picture was rendered into the surface's own pixels.
    [[nodiscard]] bool isDirect(const FakeLayer& layer) const
    {
        const QImage& canvas = surface().canvas();
        const uchar* end = canvas.constBits() + canvas.sizeInBytes();
        return layer.targets.back().pixels >= canvas.constBits() && layer.targets.back().pixels < end;
    }
    /// Whether exactly the part `visible` of the screen shows the layer's picture whose top left pixel is at
    /// `place`.
    [[nodiscard]] bool shows(const FakeLayer& layer, QPoint place, const QRect& visible) const
    {
        const QImage& image = surface().image();
        for (int y = visible.top(); y <= visible.bottom(); ++y)
            for (int x = visible.left(); x <= visible.right(); ++x)
                if ((image.pixel(x, y) & RGB_MASK) !=
                    (layer.pixelAt(x - place.x(), y - place.y()) & RGB_MASK))
                    return false;
        return true;
    }

    Window& makeWindow(const Rect& frame, View* content)
    {
        windows.push_back(
            std::make_unique<Window>(Window::Description{frame, &screen(), QStringLiteral("test")}));
        windows.back()->setOpaque(false);
        windows.back()->setContentView(content);
        windows.back()->orderFront();
        return *windows.back();
    }

    std::vector<std::unique_ptr<Window>> windows;
};

/// A movie at `place` in a window of its own.
struct Movie {
    explicit Movie(const Rect& frame)
        : view({{0, 0}, frame.size})
    {
        view.setLayer(&layer);
    }
    FakeLayer layer;
    View view;
};

} // namespace

TEST_F(CompositorTest, fullScreenMovieTwoPointsLower_isRenderedStraightIntoTheSurface)
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

TEST_F(CompositorTest, spillOfADirectMovie_isRepairedWhereASuperviewCutsIt)
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

TEST_F(CompositorTest, directAndIndirectMovies_lookTheSamePixelForPixel)
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

TEST_F(CompositorTest, whatLiesAboveADirectMovie_isPaintedOverItAgain)
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

TEST_F(CompositorTest, movieBelowTheGuardRows_isNotRenderedStraight)
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
