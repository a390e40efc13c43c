// Restart, resizing, searching and the end of a saver.

#include "engine/EngineTest.h"
#include "platform/display/Cursor.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <QFile>

namespace kestro {

namespace {

class MySaverRestartTest : public EngineTest {};

} // namespace

TEST_F(MySaverRestartTest, resetMovie_startsAtTheFirstEntryWithTheSettingsAsTheyAre)
{
    setGoodPlaylist({"a.mov", "b.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    tickFor(saver, 3);
    set("PlayMode", "1");
    describe("a.mov", {.naturalSize = {100, 100}});
    saver.resetMovie();
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(saver.snapshot().movie->time, 0);
    EXPECT_EQ(saver.movieView()->frame(), (Rect{{0, 0}, {1920, 1080}}));
    EXPECT_EQ(saver.animationTimeInterval(), 0.05);
    EXPECT_TRUE(saver.isAnimating());
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
}

TEST_F(MySaverRestartTest, resetMovie_putsAMovieInPlaceOfTheSign)
{
    const QUrl url = QUrl::fromLocalFile(home.filePath(QStringLiteral("later.mov")));
    setPlaylist({url.toString(QUrl::FullyEncoded)});
    auto& saver = makeSaver();
    saver.startAnimation();
    ASSERT_TRUE(saver.snapshot().sign);
    (void)pixelAt(0, 0);

    QFile file(url.toLocalFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    movies.describe(url.toString(QUrl::FullyEncoded), {});
    saver.resetMovie();
    EXPECT_EQ(playing(saver), "later.mov");
    EXPECT_FALSE(saver.snapshot().sign);
    EXPECT_EQ(saver.animationTimeInterval(), 0.05);
    EXPECT_TRUE(saver.movieView()->movie()->attribute(MovieAttribute::Loops));
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::red));
}

TEST_F(MySaverRestartTest, resetMovie_fallsBackToThePreviewSign_whenNothingOpens)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    describe("a.mov", {.opens = false});
    saver.resetMovie();
    EXPECT_EQ(saver.movieView(), nullptr);
    ASSERT_TRUE(saver.snapshot().sign);
    EXPECT_EQ(saver.snapshot().sign->size, signs.previewImage().size);
    EXPECT_EQ(saver.animationTimeInterval(), 0.1);
    EXPECT_EQ(pixelAt(960, 540).red(), pixelAt(960, 540).green());
}

TEST_F(MySaverRestartTest, applyLoopMode_followsTheSettingsOfNow)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver(true);
    saver.applyLoopMode();
    saver.startAnimation();
    ASSERT_TRUE(saver.movieView()->movie()->attribute(MovieAttribute::Loops));
    set("BackAndForth", "1");
    saver.applyLoopMode();
    EXPECT_TRUE(saver.movieView()->movie()->attribute(MovieAttribute::LoopsBackAndForth));
    setGoodPlaylist({"a.mov", "b.mov"});
    saver.playlist().dropFileList();
    saver.applyLoopMode();
    EXPECT_FALSE(saver.movieView()->movie()->attribute(MovieAttribute::Loops));
    EXPECT_FALSE(saver.movieView()->movie()->attribute(MovieAttribute::LoopsBackAndForth));
}

TEST_F(MySaverRestartTest, setFrame_placesTheMovieAnew)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    saver.setFrame({{0, 0}, {1280, 720}});
    EXPECT_EQ(saver.movieView()->frame(), (Rect{{0, 0}, {1280, 720}}));
}

TEST_F(MySaverRestartTest, movie_isPlacedAnew_whenItsWindowIsResized)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    saver.window()->setFrameDisplay({{0, 0}, {1280, 720}}, true);
    EXPECT_EQ(saver.movieView()->frame(), (Rect{{0, 0}, {1280, 720}}));
}

TEST_F(MySaverRestartTest, search_showsTheSignAndGivesWayToTheMovie_inRandomOrder)
{
    set("RandomMode", "1");
    setPlaylist({"x.mov", "y.mov"});
    auto& saver = makeSaver();
    bool signSeen = false;
    const auto watch = timers.repeating(1.5, [&] {
        signSeen = signSeen || pixelAt(960, 540) != QColor(Qt::red);
        describe("y.mov");
    });
    saver.startAnimation();
    EXPECT_TRUE(signSeen);
    EXPECT_EQ(playing(saver), "y.mov");
    EXPECT_FALSE(saver.snapshot().sign);
    EXPECT_EQ(pixelAt(960, 540), QColor(Qt::red));
}

TEST_F(MySaverRestartTest, search_endsWhenTheSaverIsStopped_inRandomOrder)
{
    set("RandomMode", "1");
    setPlaylist({"x.mov", "y.mov"});
    auto& saver = makeSaver();
    int turns = 0;
    const auto watch = timers.repeating(1.0, [&] {
        if (++turns == 3) saver.stopAnimation();
        saver.animateOneFrame();
    });
    saver.startAnimation();
    EXPECT_EQ(turns, 3);
    EXPECT_FALSE(saver.isAnimating());
}

TEST_F(MySaverRestartTest, search_givesWayToARestart_inRandomOrder)
{
    for (const bool isPreview : {false, true}) {
        set("RandomMode", "1");
        setPlaylist({"x.mov", "y.mov"});
        auto& saver = makeSaver(isPreview);
        int turns = 0;
        const auto watch = timers.repeating(1.0, [&] {
            if (++turns != 3) return;
            setGoodPlaylist({"a.mov", "b.mov"});
            set("RandomMode", "0");
            saver.playlist().dropFileList();
            saver.resetMovie();
        });
        saver.startAnimation();
        EXPECT_LE(turns, 4);
        EXPECT_TRUE(saver.isAnimating());
        EXPECT_EQ(playing(saver), "a.mov");
        EXPECT_FALSE(saver.snapshot().sign);
        tickFor(saver, 1);
        EXPECT_EQ(playing(saver), "a.mov");
        EXPECT_GT(saver.snapshot().movie->time, 0);
        saver.stopAnimation();
    }
}

TEST_F(MySaverRestartTest, restart_givesWayToAnother_whileItSearches)
{
    setGoodPlaylist({"a.mov"});
    auto& saver = makeSaver(true);
    saver.startAnimation();
    set("RandomMode", "1");
    setPlaylist({"x.mov"});
    saver.playlist().dropFileList();
    int turns = 0;
    const auto watch = timers.repeating(1.0, [&] {
        if (++turns != 2) return;
        setGoodPlaylist({"b.mov"});
        saver.playlist().dropFileList();
        saver.resetMovie();
    });
    saver.resetMovie();
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_FALSE(saver.snapshot().sign);
    EXPECT_TRUE(saver.isAnimating());
}

TEST_F(MySaverRestartTest, destruction_endsTheCrawl)
{
    {
        MySaver saver({{0, 0}, {800, 600}}, false, {desktop, movies, store, trailers, signs, backSavers});
    }
    EXPECT_EQ(trailers.stops, 1);
}

TEST_F(MySaverRestartTest, hasConfigureSheet_isTrue)
{
    EXPECT_TRUE(makeSaver().hasConfigureSheet());
}

} // namespace kestro
