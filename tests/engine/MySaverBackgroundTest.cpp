// Another saver behind the movies: who is shown to the host, what runs above it, and how that ends.

#include "engine/BackgroundTest.h"
#include "platform/display/desktop/Cursor.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <QFileInfo>

namespace kestro {

namespace {

class MySaverBackgroundTest : public BackgroundTest {};

} // namespace

TEST_F(MySaverBackgroundTest, init_handsTheHostTheOtherSaversView)
{
    setGoodPlaylist({"a.mov"});
    const auto view = make();
    ASSERT_NE(dynamic_cast<FakeBackSaver*>(view.get()), nullptr);
    EXPECT_EQ(view->frame(), (Rect{{0, 0}, screenSize}));
    EXPECT_FALSE(view->isPreview());
}

TEST_F(MySaverBackgroundTest, init_answersTheSaverItself_whereNoOtherIsToRunBehind)
{
    struct Case {
        const char* name;
        QVariant backSaver;
        const char* fullScreen;
        bool isPreview;
    };
    const QVariant chosen = store.plist()["BackSaver"];
    const QString file = folders.savers() + "/File.saver";
    SaverFolders::putFile(file);
    for (const Case& each : {Case{"preview", chosen, "0", true}, Case{"full screen", chosen, "1", false},
                             Case{"none chosen", {}, "0", false}, Case{"no saver", file, "0", false}}) {
        if (each.backSaver.isValid())
            set("BackSaver", each.backSaver);
        else
            store.removeOption("BackSaver");
        set("FullScreenMode", each.fullScreen);
        EXPECT_NE(dynamic_cast<MySaver*>(make(each.isPreview).get()), nullptr) << each.name;
    }
    EXPECT_EQ(logged("Cannot get a class."), 1);
}

TEST_F(MySaverBackgroundTest, init_forgetsTheOtherSaverInMemory_whenItIsInstalledNoMore)
{
    const QString gone = folders.savers() + "/Gone.saver";
    for (const bool isPreview : {false, true}) {
        log.clear();
        set("BackSaver", gone);
        EXPECT_NE(dynamic_cast<MySaver*>(make(isPreview).get()), nullptr);
        EXPECT_FALSE(store.plist().contains("BackSaver"));
        EXPECT_EQ(log, std::vector<QString>{"The background saver is not installed any more: " + gone});
    }
    EXPECT_FALSE(QFileInfo::exists(store.plistPath()));
}

TEST_F(MySaverBackgroundTest, init_keepsTheOtherSaver_whenOneOfItsNameIsInstalledElsewhere)
{
    const QString elsewhere = folders.home() + "/Downloads/Blue.saver";
    set("BackSaver", elsewhere);
    EXPECT_NE(make(true), nullptr);
    EXPECT_EQ(store.plist()["BackSaver"], elsewhere);
}

TEST_F(MySaverBackgroundTest, init_listsNoSavers_whenNoneIsChosen)
{
    store.removeOption("BackSaver");
    EXPECT_NE(make(), nullptr);
    EXPECT_TRUE(savers.backSaverList().isEmpty());
}

TEST_F(MySaverBackgroundTest, reloadBackSavers_answersTheBundles)
{
    const auto saver = make(true);
    EXPECT_EQ(dynamic_cast<ConfigurableSaver&>(*saver).reloadBackSavers(),
              QStringList{folders.savers() + "/Blue.saver"});
}

TEST_F(MySaverBackgroundTest, init_runsDirectly_whenTheOtherSaverCannotBeMade)
{
    setGoodPlaylist({"a.mov"});
    set("BackSaver", SaverFolders::putBundle(folders.savers() + "/Bad.saver", "Throws"));
    const auto view = make();
    auto* saver = dynamic_cast<MySaver*>(view.get());
    ASSERT_NE(saver, nullptr);
    EXPECT_EQ(logged("Failed to create background saver."), 1);
    show(view);
    EXPECT_EQ(playing(*saver), "a.mov");
    EXPECT_EQ(pixelAt(5, 5), QColor(Qt::black));
    saver->stopAnimation();
}

TEST_F(MySaverBackgroundTest, findScreen_waitsUntilTheOtherViewIsInAWindow)
{
    setGoodPlaylist({"a.mov"});
    background = std::dynamic_pointer_cast<FakeBackSaver>(make());
    run(100);
    EXPECT_TRUE(movies.tried().empty());
    show(background);
    run(0.11);
    EXPECT_EQ(movies.tried().size(), 1U);
    ASSERT_NE(windowOfKind("saver"), nullptr);
}

TEST_F(MySaverBackgroundTest, ticks_comeByThemselves)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    auto& saver = started();
    int told = 0;
    desktop.notifications().addObserver(&told, Notice::SaverAboveTicked, background.get(),
                                        [&told] { ++told; });
    run(1);
    EXPECT_EQ(told, 20);
    run(1.1);
    EXPECT_EQ(playing(saver), "b.mov");
    desktop.notifications().removeObserver(&told);
}

TEST_F(MySaverBackgroundTest, ticks_areSlower_whileTheSignShows)
{
    setPlaylist({});
    started();
    int told = 0;
    desktop.notifications().addObserver(&told, Notice::SaverAboveTicked, background.get(),
                                        [&told] { ++told; });
    run(1);
    EXPECT_EQ(told, 10);
    desktop.notifications().removeObserver(&told);
}

TEST_F(MySaverBackgroundTest, ticks_becomeSlower_whenTheSignTakesTheMoviesPlace)
{
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = started();
    int told = 0;
    desktop.notifications().addObserver(&told, Notice::SaverAboveTicked, background.get(),
                                        [&told] { ++told; });
    run(1);
    ASSERT_EQ(told, 20);
    saver.setAnimationTimeInterval(0.1);
    run(0.05);
    told = 0;
    run(1);
    EXPECT_EQ(told, 10);
    saver.setAnimationTimeInterval(0.05);
    run(0.1);
    told = 0;
    run(1);
    EXPECT_EQ(told, 20);
    desktop.notifications().removeObserver(&told);
}

TEST_F(MySaverBackgroundTest, closing_stopsTheSaverAndLetsItGo)
{
    set("Fadeout", "1");
    set("Continue", "1");
    setGoodPlaylist({"a.mov"}, 100);
    started();
    run(2);
    ASSERT_EQ(trailers.stops, 0);
    hostWindow->close();
    EXPECT_EQ(trailers.stops, 1);
    EXPECT_TRUE(desktop.mainScreen()->windows().empty());
    EXPECT_EQ(store.defaultsForKey("LastMovie"), QVariant("a.mov"));
    EXPECT_FALSE(desktop.cursor().isHidden());
    run(5);
    hostWindow->close();
    EXPECT_EQ(trailers.stops, 1);
    // The other view is the host's, and so is its end.
    EXPECT_EQ(background->stops, 0);
}

TEST_F(MySaverBackgroundTest, terminating_stopsTheSaverAndLetsItGo)
{
    setGoodPlaylist({"a.mov"}, 100);
    started();
    desktop.notifications().post(Notice::ApplicationWillTerminate, nullptr);
    EXPECT_EQ(trailers.stops, 1);
    EXPECT_EQ(windowOfKind("saver"), nullptr);
}

TEST_F(MySaverBackgroundTest, terminating_endsTheWaiting)
{
    const auto view = make();
    desktop.notifications().post(Notice::ApplicationWillTerminate, nullptr);
    EXPECT_EQ(trailers.stops, 1);
}

TEST_F(MySaverBackgroundTest, otherWindowsMayClose)
{
    setGoodPlaylist({"a.mov"}, 100);
    started();
    run(1);
    Window other({{{0, 0}, {10, 10}}, desktop.mainScreen(), "other"});
    other.close();
    EXPECT_EQ(trailers.stops, 0);
}

TEST_F(MySaverBackgroundTest, terminating_doesNothing_whenRunDirectly)
{
    store.removeOption("BackSaver");
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = makeSaver();
    saver.startAnimation();
    desktop.notifications().post(Notice::ApplicationWillTerminate, nullptr);
    saver.window()->close();
    EXPECT_TRUE(saver.isAnimating());
    EXPECT_EQ(playing(saver), "a.mov");
}

TEST_F(MySaverBackgroundTest, hostThatDropsTheView_endsTheSaver)
{
    setGoodPlaylist({"a.mov"}, 100);
    started();
    background.reset();
    hostWindow.reset();
    run(0.1);
    EXPECT_EQ(trailers.stops, 1);
    EXPECT_EQ(windowOfKind("saver"), nullptr);
}

TEST_F(MySaverBackgroundTest, hostThatNeverShowsTheView_endsTheSaver)
{
    make().reset();
    run(0.1);
    EXPECT_EQ(trailers.stops, 1);
    EXPECT_TRUE(movies.tried().empty());
}

TEST_F(MySaverBackgroundTest, stopWhileAMovieIsLookedFor_endsTheSaver)
{
    set("RandomMode", "1");
    setPlaylist({"x.mov", "y.mov"});
    background = std::dynamic_pointer_cast<FakeBackSaver>(make());
    show(background);
    run(3);
    hostWindow->close();
    desktop.notifications().post(Notice::ApplicationWillTerminate, nullptr);
    run(7);
    EXPECT_EQ(trailers.stops, 1);
    EXPECT_EQ(windowOfKind("saver"), nullptr);
}

TEST_F(MySaverBackgroundTest, stop_putsTheSlideFolderBack)
{
    folders.putPictureFolderSaver();
    const QString file = folders.byHost() + "/com.apple.screensaver.slideshow.0017f2.plist";
    const QVariantMap original{{"SlideFolder", "/home/me/Holiday"}};
    SaverFolders::putPreferences(file, original);
    set("BackSaver", folders.savers() + "/Five.slideSaver");
    SaverFolders::putFile(folders.savers() + "/Five.slideSaver/Contents/Resources/one.png");
    const auto view = make();
    EXPECT_EQ(SaverFolders::preferences(file).value("SlideFolder"),
              folders.savers() + "/Five.slideSaver/Contents/Resources");
    show(view);
    run(1);
    EXPECT_NE(SaverFolders::preferences(file), original);
    hostWindow->close();
    EXPECT_EQ(SaverFolders::preferences(file), original);
}

TEST_F(MySaverBackgroundTest, stop_putsTheSlideFolderBack_whenTheSaverRunsDirectly)
{
    const QString file = folders.byHost() + "/com.apple.screensaver.slideshow.0017f2.plist";
    const QVariantMap original{{"SlideFolder", "/home/me/Holiday"}};
    SaverFolders::putPreferences(file, original);
    set("BackSaver", folders.savers() + "/Five.slideSaver");
    SaverFolders::putFile(folders.savers() + "/Five.slideSaver/Contents/Resources/one.png");
    const auto view = make();
    ASSERT_NE(dynamic_cast<MySaver*>(view.get()), nullptr);
    EXPECT_NE(SaverFolders::preferences(file), original);
    show(view);
    view->stopAnimation();
    EXPECT_EQ(SaverFolders::preferences(file), original);
}

TEST_F(MySaverBackgroundTest, captureStop_holdsEverythingUpForTenSeconds)
{
    set("Interval", "1000");
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = started();
    const auto movie = saver.movieView()->movie();
    const auto position = movie->currentTime().timeValue;
    saver.captureStop();
    saver.captureStop();
    run(9.9);
    EXPECT_EQ(background->stops, 1);
    EXPECT_EQ(background->starts, 1);
    EXPECT_EQ(movie->currentTime().timeValue, position);
    run(0.2);
    EXPECT_EQ(background->stops, 1);
    EXPECT_EQ(background->starts, 2);
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
    int told = 0;
    desktop.notifications().addObserver(&told, Notice::SaverAboveTicked, background.get(),
                                        [&told] { ++told; });
    run(1);
    EXPECT_EQ(told, 20);
    desktop.notifications().removeObserver(&told);
}

TEST_F(MySaverBackgroundTest, captureStop_holdsAFadeUp)
{
    set("Fadeout", "1");
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = started();
    while (!saver.snapshot().isFading)
        run(0.05);
    const float before = windowOfKind("fade")->alphaValue();
    saver.captureStop();
    run(9.99);
    EXPECT_NEAR(windowOfKind("fade")->alphaValue(), before, 1e-5);
    run(0.02);
    EXPECT_NEAR(windowOfKind("fade")->alphaValue(), before - 0.05F, 1e-5);
    run(1.1);
    EXPECT_FALSE(saver.snapshot().isFading);
}

TEST_F(MySaverBackgroundTest, captureStop_doesNotGoOn_whenStoppedMeanwhile)
{
    setGoodPlaylist({"a.mov"}, 100);
    auto& saver = started();
    run(1);
    saver.captureStop();
    run(3);
    hostWindow->close();
    run(10);
    EXPECT_EQ(background->starts, 1);
    EXPECT_EQ(trailers.stops, 1);
}

} // namespace kestro
