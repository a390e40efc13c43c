#include "widgets/MoviePreview.h"

#include "platform/movie/MemoryMovie.h"
#include "platform/movie/NSMovie.h"
#include "widgets/ControllerBar.h"
#include "widgets/PlayButton.h"
#include "widgets/ScrubBar.h"
#include "widgets/WidgetsTest.h"

#include <QSignalSpy>
#include <QTest>

namespace kestro {

namespace {

class MoviePreviewTest : public WidgetsTest {
protected:
    MoviePreviewTest()
    {
        preview.resize(320, 180 + MoviePreview::controllerHeight());
        preview.show();
    }

    std::shared_ptr<MemoryMovie> movie(const MemoryMovieDescription& description = {})
    {
        return std::make_shared<MemoryMovie>(QUrl(QStringLiteral("http://m/a.mov")), description, clock);
    }
    std::shared_ptr<MemoryMovie> shown(const MemoryMovieDescription& description = {})
    {
        const auto made = movie(description);
        preview.setMovie(made);
        return made;
    }
    PlayButton& button() { return preview.controller().playButton(); }
    ScrubBar& scrubBar() { return preview.controller().scrubBar(); }
    QColor pictureAt(double x, double y)
    {
        preview.surface().screen().update();
        return at(preview, x, y);
    }
    [[nodiscard]] static std::int64_t timeOf(const QTMovie& movie) { return movie.currentTime().timeValue; }

    MoviePreview preview{nullptr, services};
};

} // namespace

TEST_F(MoviePreviewTest, bar_isSixteenPointsBelowThePicture)
{
    EXPECT_EQ(MoviePreview::controllerHeight(), 16);
    EXPECT_EQ(preview.controller().geometry(), QRect(0, 180, 320, 16));
    EXPECT_EQ(preview.surface().geometry(), QRect(0, 0, 320, 180));
    preview.resize(500, 400);
    EXPECT_EQ(preview.controller().geometry(), QRect(0, 384, 500, 16));
}

TEST_F(MoviePreviewTest, picture_fillsTheRoomAboveTheBar_whenItHasTheMoviesShape)
{
    shown()->play();
    EXPECT_EQ(pictureAt(0, 0), QColor(Qt::red));
    EXPECT_EQ(pictureAt(319, 179), QColor(Qt::red));
    EXPECT_NE(pictureAt(319, 180), QColor(Qt::red));
}

TEST_F(MoviePreviewTest, picture_keepsItsShapeInTheMiddleOfBlack)
{
    shown({.naturalSize = {100, 200}})->play();
    EXPECT_EQ(preview.movieView().frame(), (Rect{{115, 0}, {90, 180}}));
    EXPECT_EQ(pictureAt(114, 90), QColor(Qt::black));
    EXPECT_EQ(pictureAt(116, 90), QColor(Qt::red));
    EXPECT_EQ(pictureAt(204, 179), QColor(Qt::red));
    EXPECT_EQ(pictureAt(206, 90), QColor(Qt::black));
}

TEST_F(MoviePreviewTest, picture_fillsTheRoom_whenToldNotToKeepItsShape)
{
    preview.setKeepsShape(false);
    shown({.naturalSize = {100, 200}})->play();
    EXPECT_EQ(pictureAt(0, 0), QColor(Qt::red));
    EXPECT_EQ(pictureAt(319, 179), QColor(Qt::red));
}

TEST_F(MoviePreviewTest, picture_followsTheWidget_whenResized)
{
    shown()->play();
    preview.resize(640, 360 + 16);
    EXPECT_EQ(preview.movieView().frame(), (Rect{{0, 0}, {640, 360}}));
    EXPECT_EQ(pictureAt(639, 359), QColor(Qt::red));
}

TEST_F(MoviePreviewTest, picture_isBlack_whenTheMovieIsTakenAway)
{
    shown()->play();
    ASSERT_EQ(pictureAt(160, 90), QColor(Qt::red));
    preview.setMovie(nullptr);
    EXPECT_EQ(pictureAt(160, 90), QColor(Qt::black));
    EXPECT_EQ(preview.movie(), nullptr);
}

TEST_F(MoviePreviewTest, setMovie_takesTheMovieInsideAnOlderOne)
{
    const auto inside = movie();
    preview.setMovie(NSMovie(inside));
    EXPECT_EQ(preview.movie(), inside);
    EXPECT_EQ(preview.naturalSize(), (Size{640, 360}));
}

TEST_F(MoviePreviewTest, controls_areDisabled_whenThereIsNoMovie)
{
    EXPECT_FALSE(button().isEnabled());
    EXPECT_FALSE(scrubBar().isEnabled());
    shown();
    EXPECT_TRUE(button().isEnabled());
    EXPECT_TRUE(scrubBar().isEnabled());
    preview.setMovie(nullptr);
    EXPECT_FALSE(button().isEnabled());
    EXPECT_FALSE(scrubBar().isEnabled());
}

TEST_F(MoviePreviewTest, start_playsAndStopKeepsThePlace)
{
    const auto playing = shown();
    EXPECT_EQ(playing->rate(), 0);
    preview.start();
    EXPECT_EQ(playing->rate(), 1);
    timers.advance(2);
    preview.stop();
    EXPECT_EQ(playing->rate(), 0);
    timers.advance(2);
    EXPECT_EQ(timeOf(*playing), 1200);
}

TEST_F(MoviePreviewTest, operations_doNothing_withoutAMovie)
{
    preview.start();
    preview.stop();
    QTest::keyClick(&preview, Qt::Key_Space);
    EXPECT_EQ(preview.movie(), nullptr);
    EXPECT_EQ(preview.naturalSize(), Size{});
    EXPECT_FALSE(button().isPlaying());
}

TEST_F(MoviePreviewTest, isPlaying_isTrueFromStartToStop_whileItLoadsToo)
{
    const auto set = shown({.loadsAfter = 1});
    EXPECT_FALSE(preview.isPlaying());
    EXPECT_EQ(set->rate(), 0);
    preview.start();
    EXPECT_TRUE(preview.isPlaying());
    timers.advance(1.1);
    EXPECT_EQ(set->rate(), 1);
    EXPECT_TRUE(preview.isPlaying());
    preview.stop();
    EXPECT_FALSE(preview.isPlaying());
}

TEST_F(MoviePreviewTest, button_playsAndPauses_whenClicked)
{
    const auto playing = shown();
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_EQ(playing->rate(), 1);
    EXPECT_TRUE(button().isPlaying());
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_EQ(playing->rate(), 0);
    EXPECT_FALSE(button().isPlaying());
}

TEST_F(MoviePreviewTest, space_playsAndPauses_whereverTheFocusIs)
{
    const auto playing = shown();
    for (QWidget* focused : std::initializer_list<QWidget*>{&preview, &button(), &scrubBar()}) {
        QTest::keyClick(focused, Qt::Key_Space);
        EXPECT_EQ(playing->rate(), 1);
        QTest::keyClick(focused, Qt::Key_Space);
        EXPECT_EQ(playing->rate(), 0);
    }
}

TEST_F(MoviePreviewTest, button_isPlayAgain_whenTheMovieHasEnded)
{
    const auto playing = shown({.seconds = 3});
    preview.start();
    timers.advance(2.9);
    EXPECT_TRUE(button().isPlaying());
    timers.advance(0.3);
    EXPECT_FALSE(button().isPlaying());
    EXPECT_EQ(scrubBar().value(), 1800);
    preview.start();
    EXPECT_EQ(timeOf(*playing), 0);
    EXPECT_EQ(playing->rate(), 1);
}

TEST_F(MoviePreviewTest, scrubBar_followsTheMovieWhileItPlays)
{
    shown({.seconds = 20});
    EXPECT_EQ(scrubBar().maximum(), 12000);
    preview.start();
    timers.advance(5);
    EXPECT_NEAR(scrubBar().value(), 3000, 61);
    EXPECT_EQ(scrubBar().accessibleDescription(), QStringLiteral("0:05 / 0:20"));
}

TEST_F(MoviePreviewTest, scrubBar_tellsHours_whenTheMovieHasThem)
{
    const auto playing = shown({.seconds = 7325});
    playing->setCurrentTime({3661 * 600, 600});
    preview.start();
    timers.advance(0.1);
    EXPECT_EQ(scrubBar().accessibleDescription(), QStringLiteral("1:01:01 / 2:02:05"));
}

TEST_F(MoviePreviewTest, press_goesToThePlaceAtOnceAndDragsOn)
{
    const auto playing = shown({.seconds = 20});
    preview.start();
    const QPoint middle = scrubBar().rect().center();
    QTest::mousePress(&scrubBar(), Qt::LeftButton, {}, middle);
    EXPECT_NEAR(static_cast<double>(timeOf(*playing)), 6000, 150);
    QTest::mouseMove(&scrubBar(), {scrubBar().width() - 1, middle.y()});
    EXPECT_EQ(timeOf(*playing), 12000);
    QTest::mouseRelease(&scrubBar(), Qt::LeftButton, {}, {scrubBar().width() - 1, middle.y()});
}

TEST_F(MoviePreviewTest, scrubBar_staysInThePersonsHand_whileTheMoviePlays)
{
    shown({.seconds = 20});
    preview.start();
    QTest::mousePress(&scrubBar(), Qt::LeftButton, {}, scrubBar().rect().center());
    const int held = scrubBar().value();
    timers.advance(4);
    EXPECT_EQ(scrubBar().value(), held);
    QTest::mouseRelease(&scrubBar(), Qt::LeftButton, {}, scrubBar().rect().center());
    timers.advance(0.1);
    EXPECT_GT(scrubBar().value(), held + 2000);
}

TEST_F(MoviePreviewTest, keys_goBySecondsAndByTenOfThem)
{
    const auto standing = shown({.seconds = 60});
    QTest::keyClick(&scrubBar(), Qt::Key_Right);
    EXPECT_EQ(timeOf(*standing), 600);
    QTest::keyClick(&scrubBar(), Qt::Key_PageUp);
    EXPECT_EQ(timeOf(*standing), 6600);
    QTest::keyClick(&scrubBar(), Qt::Key_Left);
    EXPECT_EQ(timeOf(*standing), 6000);
    QTest::keyClick(&scrubBar(), Qt::Key_Home);
    EXPECT_EQ(timeOf(*standing), 0);
}

TEST_F(MoviePreviewTest, remoteMovie_isFittedAndToldOf_whenItIsLoaded)
{
    QSignalSpy loaded(&preview, &MoviePreview::movieLoaded);
    shown({.naturalSize = {100, 200}, .loadsAfter = 3});
    preview.start();
    EXPECT_TRUE(button().isPlaying());
    EXPECT_FALSE(scrubBar().isEnabled());
    EXPECT_EQ(preview.movieView().frame(), (Rect{{0, 0}, {320, 180}}));
    EXPECT_EQ(loaded.count(), 0);
    timers.advance(3.1);
    EXPECT_EQ(loaded.count(), 1);
    EXPECT_EQ(preview.movieView().frame(), (Rect{{115, 0}, {90, 180}}));
    EXPECT_TRUE(scrubBar().isEnabled());
    EXPECT_TRUE(button().isPlaying());
}

TEST_F(MoviePreviewTest, localMovie_isToldOfAtOnce)
{
    QSignalSpy loaded(&preview, &MoviePreview::movieLoaded);
    shown();
    EXPECT_EQ(loaded.count(), 1);
}

TEST_F(MoviePreviewTest, remoteMovie_isToldOf_whenItFails)
{
    QSignalSpy failed(&preview, &MoviePreview::movieFailed);
    shown({.loadsAfter = 2, .failsLoading = true});
    preview.start();
    timers.advance(2.1);
    EXPECT_EQ(failed.count(), 1);
    EXPECT_FALSE(button().isEnabled());
    EXPECT_FALSE(button().isPlaying());
    timers.advance(5);
    EXPECT_EQ(failed.count(), 1);
}

TEST_F(MoviePreviewTest, sizeHint_isTheMovieWithTheBar)
{
    shown({.naturalSize = {400, 300}});
    EXPECT_EQ(preview.sizeHint(), QSize(400, 316));
}

TEST_F(MoviePreviewTest, controls_haveNamesForAssistivePrograms)
{
    shown();
    EXPECT_EQ(button().accessibleName(), QStringLiteral("Play"));
    preview.start();
    EXPECT_EQ(button().accessibleName(), QStringLiteral("Pause"));
    EXPECT_EQ(scrubBar().accessibleName(), QStringLiteral("Position"));
    EXPECT_EQ(button().focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(scrubBar().focusPolicy(), Qt::StrongFocus);
}

TEST_F(MoviePreviewTest, movie_isLetGoOf_whenThePreviewGoes)
{
    std::weak_ptr<QTMovie> held;
    {
        MoviePreview other(nullptr, services);
        const auto made = movie();
        other.setMovie(made);
        other.start();
        held = made;
    }
    EXPECT_TRUE(held.expired());
    timers.advance(1); // no timer runs into what is gone
}

} // namespace kestro
