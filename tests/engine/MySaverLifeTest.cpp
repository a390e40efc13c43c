// Start, stop, restart: what a saver builds, shows and stores over its life.

#include "engine/EngineTest.h"
#include "engine/OtherMonitorsDesktop.h"
#include "platform/base/StoredValue.h"
#include "platform/display/desktop/Cursor.h"
#include "platform/movie/QTMovie.h"
#include "presentation/KTMovieView.h"
#include "presentation/KTMovieWindow.h"

namespace kestro {

namespace {

class MySaverLifeTest : public EngineTest {
protected:
    void setBounce()
    {
        set("FullScreenMode", "0");
        set("PartialMode", "1");
    }
    void setFly()
    {
        set("FullScreenMode", "0");
        set("PartialMode", "0");
    }
    static bool isWindow(const MySaver& saver)
    {
        return dynamic_cast<KTMovieWindow*>(saver.movieView()) != nullptr;
    }
    /// Whether that is the sign that wanders over the first screen, by the pixels of its middle.
    bool isSeen(const MySaver& saver, const Picture& sign)
    {
        const auto bounds = saver.snapshot().sign;
        if (!bounds) return false;
        const int density = sign.image.width() / static_cast<int>(sign.size.width);
        int difference = 0;
        for (int x = 170; x < 250; ++x) {
            const auto column = static_cast<int>(bounds->left()) + x;
            const auto row = static_cast<int>(bounds->bottom()) + static_cast<int>(sign.size.height) - 80;
            const QColor wanted = sign.image.pixelColor(x * density, 80 * density);
            difference += std::abs(pixelAt(column, row).red() - wanted.red());
        }
        return difference < 80 * 16;
    }
    std::shared_ptr<MemoryMovie> shown() { return movies.alive().back(); }
    int windowsOfKind(const QString& kind)
    {
        int count = 0;
        for (const auto* window : desktop.mainScreen()->windows())
            count += window->kind() == kind;
        return count;
    }
};

} // namespace

TEST_F(MySaverLifeTest, startAnimation_playsTheFirstEntryFullScreen)
{
    setGoodPlaylist({"a.mov", "b.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(saver.movieView()->frame(), (Rect{{0, 0}, {1920, 1080}}));
    EXPECT_EQ(saver.animationTimeInterval(), 0.05);
    EXPECT_EQ(shown()->rate(), 1.0F);
    EXPECT_TRUE(desktop.cursor().isHidden());
    EXPECT_TRUE(saver.isAnimating());
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::red));
}

TEST_F(MySaverLifeTest, startAnimation_leavesThePointerAlone_inAPreview)
{
    setGoodPlaylist({"a.mov"});
    makeSaver(true, 0, {320, 200}).startAnimation();
    EXPECT_FALSE(desktop.cursor().isHidden());
}

TEST_F(MySaverLifeTest, startAnimation_showsTheSelectSign_whenNothingIsPlayable)
{
    setPlaylist({});
    auto& saver = makeSaver();
    saver.startAnimation();
    EXPECT_EQ(saver.movieView(), nullptr);
    ASSERT_TRUE(saver.snapshot().sign);
    EXPECT_EQ(saver.snapshot().sign->size, signs.selectImage().size);
    EXPECT_EQ(saver.animationTimeInterval(), 0.1);
    EXPECT_TRUE(desktop.cursor().isHidden());
    EXPECT_TRUE(isSeen(saver, signs.selectImage()));
    EXPECT_FALSE(isSeen(saver, signs.failedImage()));
    const Rect sign = *saver.snapshot().sign;
    EXPECT_TRUE(sign.left() >= 0 && sign.bottom() >= 0 && sign.right() <= 1920 && sign.top() <= 1080);
}

TEST_F(MySaverLifeTest, startAnimation_saysThatNothingCouldBeLoaded_whenNoEntryOpens)
{
    setPlaylist({"x.mov", "y.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    EXPECT_EQ(saver.movieView(), nullptr);
    EXPECT_TRUE(isSeen(saver, signs.failedImage()));
    EXPECT_FALSE(isSeen(saver, signs.selectImage()));
    EXPECT_EQ(logged("Failed to load movie:http://m/y.mov"), 1);
}

TEST_F(MySaverLifeTest, startAnimation_showsThePreviewSign_inAPreview)
{
    auto& saver = makeSaver(true, 0, {320, 200});
    saver.startAnimation();
    ASSERT_TRUE(saver.snapshot().sign);
    EXPECT_EQ(saver.snapshot().sign->size, signs.previewImage().size);
}

struct LoopCase {
    const char* name;
    QStringList playlist;
    bool backAndForth;
    bool repositionAtEnd;
    bool loops;
    bool turns;
};

class MySaverLoopMode : public MySaverLifeTest, public testing::WithParamInterface<LoopCase> {};

TEST_P(MySaverLoopMode, startAnimation_setsHowTheMovieEnds)
{
    const auto& how = GetParam();
    setGoodPlaylist(how.playlist);
    set("BackAndForth", how.backAndForth ? "1" : "0");
    if (how.repositionAtEnd) {
        setFly();
        set("Reposition", "1");
    }
    makeSaver().startAnimation();
    EXPECT_EQ(shown()->attribute(MovieAttribute::Loops), how.loops);
    EXPECT_EQ(shown()->attribute(MovieAttribute::LoopsBackAndForth), how.turns);
}

INSTANTIATE_TEST_SUITE_P(
    Playlists, MySaverLoopMode,
    testing::Values(LoopCase{"two", {"a.mov", "b.mov"}, true, false, false, false},
                    LoopCase{"one", {"a.mov"}, false, false, true, false},
                    LoopCase{"oneBackAndForth", {"a.mov"}, true, false, false, true},
                    LoopCase{"oneReplacedAtItsEnd", {"a.mov"}, false, true, false, false},
                    LoopCase{"oneReplacedBackAndForth", {"a.mov"}, true, true, false, true}),
    [](const auto& test) { return test.param.name; });

TEST_F(MySaverLifeTest, construction_choosesTheWindowMode_onlyForBounceOutsideAPreview)
{
    setGoodPlaylist({"a.mov"});
    setBounce();
    auto& full = makeSaver();
    full.startAnimation();
    EXPECT_TRUE(isWindow(full));
    auto& preview = makeSaver(true, 0, {320, 200});
    preview.startAnimation();
    EXPECT_FALSE(isWindow(preview));
    setFly();
    auto& fly = makeSaver();
    fly.startAnimation();
    EXPECT_FALSE(isWindow(fly));
}

TEST_F(MySaverLifeTest, construction_keepsItsMode_whenTheSettingsChange)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver();
    setBounce();
    saver.startAnimation();
    EXPECT_FALSE(isWindow(saver));
}

TEST_F(MySaverLifeTest, startAnimation_shieldsTheMovieWindowAboveTheSaver)
{
    setGoodPlaylist({"a.mov"});
    setBounce();
    set("Scale", "0.5");
    makeSaver().startAnimation();
    const auto& windows = desktop.mainScreen()->windows();
    ASSERT_EQ(windows.size(), 2U);
    EXPECT_EQ(windows.back()->kind(), "movie");
    EXPECT_EQ(windows.back()->level(), WindowLevel::Shielding);
    EXPECT_EQ(windows.back()->frame().size, (Size{320, 180}));
}

struct FadeWindowCase {
    const char* name;
    const char* fullScreen;
    const char* partial;
    const char* fade;
    bool preview;
    int windows;
};

class MySaverFadeWindow : public MySaverLifeTest, public testing::WithParamInterface<FadeWindowCase> {};

TEST_P(MySaverFadeWindow, startAnimation_opensTheFadeWindow_onlyWhereMoviesFly)
{
    const auto& how = GetParam();
    setGoodPlaylist({"a.mov"});
    set("FullScreenMode", how.fullScreen);
    set("PartialMode", how.partial);
    set("Fadeout", how.fade);
    auto& saver = makeSaver(how.preview);
    saver.startAnimation();
    EXPECT_EQ(windowsOfKind("fade"), how.windows);
    saver.stopAnimation();
    EXPECT_EQ(windowsOfKind("fade"), 0);
}

INSTANTIATE_TEST_SUITE_P(Modes, MySaverFadeWindow,
                         testing::Values(FadeWindowCase{"fly", "0", "0", "1", false, 1},
                                         FadeWindowCase{"stillPartial", "0", "2", "1", false, 1},
                                         FadeWindowCase{"flyWithoutFade", "0", "0", "0", false, 0},
                                         FadeWindowCase{"fullScreen", "1", "0", "1", false, 0},
                                         FadeWindowCase{"bounce", "0", "1", "1", false, 0},
                                         FadeWindowCase{"preview", "0", "0", "1", true, 0}),
                         [](const auto& test) { return test.param.name; });

TEST_F(MySaverLifeTest, startAnimation_saysSo_whenTheFadeWindowHasNoScreen)
{
    setGoodPlaylist({"a.mov"});
    setFly();
    set("Fadeout", "1");
    MySaver saver({{0, 0}, {800, 600}}, false, {desktop, movies, store, trailers, signs, backSavers});
    saver.startAnimation();
    EXPECT_EQ(logged("Cannot find curScreen from startAnimation."), 1);
}

TEST_F(MySaverLifeTest, sound_playsOnTheFirstScreenOnly)
{
    desktop.addScreen({{1920, 0}, {800, 600}});
    setGoodPlaylist({"a.mov"});
    set("SoundOn", "1");
    auto& first = makeSaver();
    auto& second = makeSaver(false, 1, {800, 600});
    auto& preview = makeSaver(true);
    for (auto* saver : {&first, &second, &preview})
        saver->startAnimation();
    EXPECT_FALSE(first.movieView()->isMuted());
    EXPECT_TRUE(second.movieView()->isMuted());
    EXPECT_TRUE(preview.movieView()->isMuted());
    EXPECT_FALSE(first.movieView()->movie()->isMuted());
    EXPECT_TRUE(second.movieView()->movie()->isMuted());
}

// A process that has but one of the monitors, as under xscreensaver.
TEST_F(MySaverLifeTest, sound_isOff_whenTheOnlyScreenIsNotTheFirstMonitor)
{
    setGoodPlaylist({"a.mov"});
    set("SoundOn", "1");
    OtherMonitorsDesktop elsewhere(desktop);
    Window window({{{0, 0}, {1920, 1080}}, desktop.mainScreen(), QStringLiteral("host")});
    MySaver saver({{0, 0}, {1920, 1080}}, false, {elsewhere, movies, store, trailers, signs, backSavers});
    window.setContentView(&saver);
    saver.startAnimation();
    EXPECT_TRUE(saver.movieView()->movie()->isMuted());
    window.setContentView(nullptr);
}

TEST_F(MySaverLifeTest, snapshot_saysThatTheMovieIsHeard_whereItIs)
{
    setGoodPlaylist({"a.mov"}, 10);
    auto& silent = makeSaver();
    silent.startAnimation();
    tick(silent);
    EXPECT_FALSE(silent.snapshot().movie->isHeard);
    set("SoundOn", "1");
    auto& saver = makeSaver();
    saver.startAnimation();
    tick(saver);
    EXPECT_TRUE(saver.snapshot().movie->isHeard);
    EXPECT_EQ(saver.snapshot().movie->volume, 1);
    EXPECT_EQ(saver.snapshot().movie->duration, 10 * SaverSnapshot::Movie::unitsPerSecond);
    saver.rest(Rest::Held);
    EXPECT_FALSE(saver.snapshot().movie->isHeard);
}

TEST_F(MySaverLifeTest, sound_isOff_unlessSwitchedOn)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    EXPECT_TRUE(saver.movieView()->movie()->isMuted());
}

TEST_F(MySaverLifeTest, stopAnimation_showsThePointerAgain)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    saver.stopAnimation();
    EXPECT_FALSE(desktop.cursor().isHidden());
    EXPECT_FALSE(saver.isAnimating());
}

TEST_F(MySaverLifeTest, pointer_isHiddenWheneverTheSaverRuns_andShownInBetween)
{
    setPlaylist({});
    auto& saver = makeSaver();
    for (int i = 0; i < 2; ++i) {
        saver.startAnimation();
        EXPECT_TRUE(desktop.cursor().isHidden()) << i;
        saver.stopAnimation();
        EXPECT_FALSE(desktop.cursor().isHidden()) << i;
    }
}

TEST_F(MySaverLifeTest, startAnimation_again_keepsTheMovieFrame)
{
    setGoodPlaylist({"a.mov", "b.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    const auto* frame = saver.movieView();
    saver.stopAnimation();
    saver.startAnimation();
    EXPECT_EQ(saver.movieView(), frame);
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(movies.tried().size(), 1U);
}

TEST_F(MySaverLifeTest, options_areThoseOfTheSaver_withTheLibraryThatItWasGiven)
{
    auto& saver = makeSaver();
    ASSERT_EQ(saver.options(), &saver);
    EXPECT_EQ(&saver.options()->movies(), &movies);
}

TEST_F(MySaverLifeTest, startAnimation_again_leavesTheSignWhereItIs)
{
    auto& saver = makeSaver();
    saver.startAnimation();
    const auto sign = saver.snapshot().sign;
    saver.stopAnimation();
    saver.startAnimation();
    EXPECT_EQ(saver.snapshot().sign, sign);
}

} // namespace kestro
