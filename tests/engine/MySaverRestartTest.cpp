// Restart, resizing, searching and the end of a saver.

#include "engine/EngineTest.h"
#include "platform/display/desktop/Cursor.h"
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
    ASSERT_TRUE(waitUntil([&] { return saver.snapshot().sign.has_value(); }));
    (void)pixelAt(0, 0);

    QFile file(url.toLocalFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    movies.describe(url.toString(QUrl::FullyEncoded), {});
    saver.resetMovie();
    EXPECT_TRUE(waitUntil([&] { return playing(saver) == "later.mov"; }));
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

TEST_F(MySaverRestartTest, search_showsTheMovingSignAndGivesWayToTheMovie)
{
    for (const char* order : {"0", "1"}) {
        set("RandomMode", order);
        setPlaylist({"x.mov", "y.mov"});
        describe("y.mov", {.opens = false});
        auto& saver = makeSaver();
        saver.startAnimation();
        const auto sign = saver.snapshot().sign;
        ASSERT_TRUE(sign);
        tickFor(saver, 40);
        ASSERT_TRUE(saver.snapshot().sign);
        EXPECT_NE(saver.snapshot().sign->origin, sign->origin);
        describe("y.mov");
        tickFor(saver, 31);
        EXPECT_EQ(playing(saver), "y.mov");
        EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
        EXPECT_EQ(saver.animationTimeInterval(), 0.05);
        EXPECT_FALSE(saver.snapshot().sign);
        EXPECT_EQ(pixelAt(960, 540), QColor(Qt::red));
        saver.stopAnimation();
    }
}

TEST_F(MySaverRestartTest, search_triesOnceASecondAtMost)
{
    setPlaylist({"x.mov", "y.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    tickFor(saver, 20);
    EXPECT_GE(movies.tried().size(), 2U * 18);
    EXPECT_LE(movies.tried().size(), 2U * 21);
    EXPECT_EQ(logged("Failed to load movie:http://m/x.mov"), 1);
}

TEST_F(MySaverRestartTest, search_isGivenUp_whenTheSaverIsStopped)
{
    setPlaylist({"x.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    saver.stopAnimation();
    describe("x.mov");
    const auto tries = movies.tried().size();
    timers.advance(100);
    EXPECT_EQ(movies.tried().size(), tries);
    EXPECT_FALSE(saver.isAnimating());
}

TEST_F(MySaverRestartTest, start_searchesAnew_whenItWasStoppedInItsSearch)
{
    set("FileList", QVariantList{"file:///slow.mov", "http://m/far.mov"});
    describe("far.mov", {.loadsAfter = 1});
    auto& saver = makeSaver();
    saver.startAnimation(); // the file is looked for on another thread
    saver.stopAnimation();
    EXPECT_FALSE(saver.snapshot().sign);
    setGoodPlaylist({"a.mov"});
    saver.playlist().dropFileList();
    saver.startAnimation();
    EXPECT_EQ(playing(saver), "a.mov");
    EXPECT_EQ(saver.movieView()->movie()->rate(), 1.0F);
}

TEST_F(MySaverRestartTest, resetMovie_asksEntriesThatFailedAgain)
{
    for (const bool isPreview : {false, true}) {
        setPlaylist({"x.mov"});
        describe("x.mov", {.opens = false});
        auto& saver = makeSaver(isPreview);
        saver.startAnimation();
        EXPECT_TRUE(saver.snapshot().sign);
        describe("x.mov");
        saver.resetMovie();
        EXPECT_EQ(playing(saver), "x.mov");
        EXPECT_FALSE(saver.snapshot().sign);
        EXPECT_TRUE(saver.isAnimating());
        saver.stopAnimation();
    }
}

TEST_F(MySaverRestartTest, resetMovie_takesThePlaceOfASearch)
{
    setPlaylist({"x.mov"});
    auto& saver = makeSaver(true);
    saver.startAnimation();
    tickFor(saver, 2);
    setGoodPlaylist({"b.mov"});
    saver.playlist().dropFileList();
    saver.resetMovie();
    tickFor(saver, 5);
    EXPECT_EQ(playing(saver), "b.mov");
    EXPECT_GT(saver.snapshot().movie->time, 0);
    EXPECT_FALSE(saver.snapshot().sign);
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
