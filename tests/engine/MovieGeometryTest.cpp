#include "engine/MovieGeometry.h"

#include "engine/EngineTest.h"
#include "platform/saver/ScreenSaverFunctions.h"
#include "presentation/KTMovieView.h"

namespace kestro {

namespace {

/// A movie frame with content of one natural size.
class SizedFrame final : public MovieFrame {
public:
    explicit SizedFrame(Size natural)
        : m_natural(natural)
    {
    }
    void setMovie(const MovieContent&) override {}
    std::shared_ptr<QTMovie> movie() const override { return nullptr; }
    Rect movieRect() const override { return {}; }
    void start(const void*) override {}
    void stop(const void*) override {}
    void letGo() override {}
    Picture picture(Size, double) const override { return {}; }
    bool isPlaying() const override { return true; }
    void keepPlaying() override {}
    void setVolume(float) override {}
    float volume() const override { return 0; }
    void setMuted(bool) override {}
    bool isMuted() const override { return false; }
    void setLoopMode(int) override {}
    void showControllerAdjustingSize(bool, bool) override {}
    Size sizeWithScale(float) const override { return m_natural; }
    void show(View&) override {}
    void hide() override {}
    void place(const Rect&) override {}
    Rect covered() const override { return {}; }
    Rect frame() const override { return {}; }
    void setFrameOrigin(Point) override {}

private:
    Size m_natural;
};

class MovieGeometryTest : public EngineTest {
protected:
    /// A saver view of that size on the first screen.
    MovieGeometry& geometryIn(Size size, bool isPreview = false)
    {
        auto& saver = makeSaver(isPreview, 0, size);
        m_geometry = std::make_unique<MovieGeometry>(saver, saver.settings(), random);
        return *m_geometry;
    }

    void setDynamic(const QString& scale)
    {
        set("FullScreenMode", "0");
        set("PartialMode", "0");
        set("Scale", scale);
    }

private:
    std::unique_ptr<MovieGeometry> m_geometry;
};

} // namespace

TEST_F(MovieGeometryTest, placeFor_fitsAndCentres_inPlayMode0)
{
    set("PlayMode", "0");
    const Rect place = geometryIn({1280, 800}).placeFor(SizedFrame({640, 480}), false);
    EXPECT_EQ(place, (Rect{{106, 0}, {1067, 800}}));
    EXPECT_EQ(logged("fullscreen 0 selected"), 1);
}

TEST_F(MovieGeometryTest, placeFor_fitsByWidth_whenTheMovieIsWider)
{
    EXPECT_EQ(geometryIn({1280, 800}).placeFor(SizedFrame({1000, 333}), false),
              (Rect{{0, 186}, {1280, 427}}));
}

TEST_F(MovieGeometryTest, placeFor_stretchesOverTheView_inPlayMode1)
{
    set("PlayMode", "1");
    EXPECT_EQ(geometryIn({1280, 800}).placeFor(SizedFrame({640, 480}), false), (Rect{{0, 0}, {1280, 800}}));
    EXPECT_EQ(logged("fullscreen 0 selected"), 0);
}

TEST_F(MovieGeometryTest, placeFor_coversTheView_inPlayMode2)
{
    set("PlayMode", "2");
    EXPECT_EQ(geometryIn({1280, 800}).placeFor(SizedFrame({640, 480}), false), (Rect{{0, -80}, {1280, 960}}));
}

TEST_F(MovieGeometryTest, placeFor_coversByHeight_whenTheMovieIsWider)
{
    set("PlayMode", "2");
    EXPECT_EQ(geometryIn({1280, 800}).placeFor(SizedFrame({1920, 800}), false),
              (Rect{{-320, 0}, {1920, 800}}));
}

TEST_F(MovieGeometryTest, placeFor_countsAnyOtherPlayModeAsFitting)
{
    set("PlayMode", "7");
    EXPECT_EQ(geometryIn({1280, 800}).placeFor(SizedFrame({640, 480}), false), (Rect{{106, 0}, {1067, 800}}));
    EXPECT_EQ(logged("fullscreen 0 selected"), 1);
}

TEST_F(MovieGeometryTest, placeFor_isEmptyAtTheOrigin_whileTheSizeIsUnknown)
{
    for (const char* mode : {"0", "2"}) {
        set("PlayMode", mode);
        EXPECT_EQ(geometryIn({1280, 800}).placeFor(SizedFrame({0, 0}), false), Rect{});
    }
    setDynamic("1.0");
    EXPECT_EQ(geometryIn({1280, 800}).placeFor(SizedFrame({640, 0}), false), Rect{});
}

TEST_F(MovieGeometryTest, clientSize_scalesAfterFittingAndRoundsUp)
{
    auto& geometry = geometryIn({1280, 800});
    EXPECT_EQ(geometry.clientSizeFromSSBaseSize(0.5F, {640, 480}), (Size{534, 400}));
    EXPECT_EQ(geometry.bigClientSizeFromSSBaseSize(0.31F, {640, 480}), (Size{397, 298}));
}

TEST_F(MovieGeometryTest, movieSizeForFlyMode_scalesTheNaturalSizeAndRoundsUp)
{
    EXPECT_EQ(geometryIn({1920, 1080}).movieSizeForFlyMode(SizedFrame({641, 361}), 0.5F), (Size{321, 181}));
}

TEST_F(MovieGeometryTest, movieSizeForFlyMode_neverExceedsTheView)
{
    auto& geometry = geometryIn({1000, 500});
    EXPECT_EQ(geometry.movieSizeForFlyMode(SizedFrame({2000, 500}), 1.0F), (Size{1000, 250}));
    EXPECT_EQ(geometry.movieSizeForFlyMode(SizedFrame({800, 1000}), 1.0F), (Size{400, 500}));
    EXPECT_EQ(geometry.movieSizeForFlyMode(SizedFrame({4000, 4000}), 1.0F), (Size{500, 500}));
}

// A preview is a screen of its own, in a part of the monitor.
TEST_F(MovieGeometryTest, movieSizeForFlyMode_isToTheMonitorsScale_inAPreview)
{
    Screen& widget = desktop.addScreen({{1920, 0}, {558, 314}});
    widget.setMonitorSize({1280, 720});
    auto& saver = makeSaver(true, 1, {558, 314});
    const MovieGeometry geometry(saver, saver.settings(), random);
    EXPECT_EQ(geometry.movieSizeForFlyMode(SizedFrame({640, 360}), 1.0F), (Size{279, 157}));
    EXPECT_EQ(geometry.movieSizeForFlyMode(SizedFrame({640, 360}), 2.0F), (Size{558, 314}));
    widget.setMonitorSize({2560, 1440});
    EXPECT_EQ(geometry.movieSizeForFlyMode(SizedFrame({640, 360}), 1.0F), (Size{140, 79}));
}

TEST_F(MovieGeometryTest, movieSizeForFlyMode_leavesTheMonitorAside_outsideAPreview)
{
    Screen& part = desktop.addScreen({{1920, 0}, {558, 314}});
    part.setMonitorSize({1280, 720});
    auto& saver = makeSaver(false, 1, {558, 314});
    const MovieGeometry geometry(saver, saver.settings(), random);
    EXPECT_EQ(geometry.movieSizeForFlyMode(SizedFrame({320, 180}), 1.0F), (Size{320, 180}));
}

TEST_F(MovieGeometryTest, movieSizeForFlyMode_isZero_whileTheSizeIsUnknown)
{
    EXPECT_EQ(geometryIn({1280, 800}).movieSizeForFlyMode(SizedFrame({0, 100}), 1.0F), Size{});
}

TEST_F(MovieGeometryTest, randomPosition_staysInsideTheViewAndReachesItsEnds)
{
    auto& geometry = geometryIn({104, 53});
    float left = 99, right = -1;
    for (int i = 0; i < 500; ++i) {
        const Point at = geometry.randomPositionWithSize({100, 50});
        EXPECT_TRUE(at.x >= 0 && at.x <= 4 && at.y >= 0 && at.y <= 3);
        left = std::min(left, at.x);
        right = std::max(right, at.x);
    }
    EXPECT_EQ(left, 0);
    EXPECT_EQ(right, 4);
}

TEST_F(MovieGeometryTest, randomPosition_startsPartlyOffTheArea_whenTheSizeIsLarger)
{
    auto& geometry = geometryIn({100, 50});
    for (int i = 0; i < 200; ++i) {
        const Point at = geometry.randomPositionWithSize({110, 50});
        EXPECT_TRUE(at.x >= -10 && at.x <= 0);
        EXPECT_EQ(at.y, 0);
    }
}

TEST_F(MovieGeometryTest, randomPosition_countsFromTheScreensOrigin_whenAskedForTheScreen)
{
    desktop.addScreen({{1920, -200}, {800, 600}});
    auto& saver = makeSaver(false, 1, {800, 600});
    const MovieGeometry geometry(saver, saver.settings(), random);
    for (int i = 0; i < 100; ++i) {
        const Point at = geometry.randomPositionWithSizeFromScreen({700, 500}, true);
        EXPECT_TRUE(at.x >= 1920 && at.x <= 2020 && at.y >= -200 && at.y <= -100);
    }
}

TEST_F(MovieGeometryTest, placeFor_takesTheWholeScreen_inWindowMode)
{
    setDynamic("0.5");
    desktop.addScreen({{1920, 0}, {800, 600}});
    auto& saver = makeSaver(false, 1, {800, 600});
    const MovieGeometry geometry(saver, saver.settings(), random);
    const SizedFrame frame({640, 360});
    EXPECT_GE(geometry.placeFor(frame, true).origin.x, 1920);
    EXPECT_LE(geometry.placeFor(frame, false).origin.x, 480);
    EXPECT_EQ(geometry.placeFor(frame, true).size, (Size{320, 180}));
}

} // namespace kestro
