#include "trailers/panel/PreviewWindow.h"

#include "trailers/panel/PanelTest.h"
#include "widgets/MoviePreview.h"

#include <QScreen>
#include <QSignalSpy>
#include <QTest>

namespace kestro {

namespace {

const QString small = QStringLiteral("http://h/a/Small%20One.mov");
const QString other = QStringLiteral("http://h/a/other.mov");
const QString slow = QStringLiteral("http://h/a/slow.mov");

} // namespace

class PreviewWindowTest : public PanelTest {
protected:
    PreviewWindowTest()
    {
        m_movies.describe(QUrl(small).toString(), {.naturalSize = {320, 180}});
        m_movies.describe(other, {.naturalSize = {200, 100}});
    }

    [[nodiscard]] bool preview(const QString& url) { return m_window.preview(QUrl(url)); }
    [[nodiscard]] MoviePreview& viewer() { return m_window.qtViewer(); }

    PreviewWindow m_window{m_movies, m_services};
};

TEST_F(PreviewWindowTest, window_beginsAtTheTopLeftOfTheMainScreen)
{
    EXPECT_EQ(m_window.pos(), QGuiApplication::primaryScreen()->geometry().topLeft());
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(PreviewWindowTest, preview_playsTheMovieAtItsOwnSizeAboveTheBar)
{
    ASSERT_TRUE(preview(small));
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(m_window.windowTitle(), QStringLiteral("Small One.mov"));
    EXPECT_EQ(m_window.size(), QSize(320, 196));
    EXPECT_EQ(viewer().geometry(), QRect(0, 0, 320, 196));
    EXPECT_EQ(viewer().movie()->rate(), 1);
}

TEST_F(PreviewWindowTest, preview_keepsTheTopLeftCorner_whenTheNextMovieHasAnotherSize)
{
    ASSERT_TRUE(preview(small));
    m_window.move(30, 40);
    ASSERT_TRUE(preview(other));
    EXPECT_EQ(m_window.pos(), QPoint(30, 40));
    EXPECT_EQ(m_window.size(), QSize(200, 116));
}

TEST_F(PreviewWindowTest, preview_stopsTheMovieBefore)
{
    ASSERT_TRUE(preview(small));
    const auto first = viewer().movie();
    ASSERT_TRUE(preview(other));
    EXPECT_EQ(first->rate(), 0);
    EXPECT_EQ(viewer().movie()->url(), QUrl(other));
}

TEST_F(PreviewWindowTest, title_isMovieTrailer_whenTheURLHasNoName)
{
    const QString bare = QStringLiteral("http://h/");
    m_movies.describe(bare, {});
    ASSERT_TRUE(preview(bare));
    EXPECT_EQ(m_window.windowTitle(), QStringLiteral("Movie Trailer"));
}

TEST_F(PreviewWindowTest, preview_showsNoMovie_whenNoneCanBeMade)
{
    ASSERT_TRUE(preview(small));
    const auto first = viewer().movie();
    EXPECT_FALSE(preview(QStringLiteral("http://h/none.mov")));
    EXPECT_EQ(viewer().movie(), nullptr);
    EXPECT_EQ(first->rate(), 0);
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(m_window.windowTitle(), QStringLiteral("Small One.mov"));
}

TEST_F(PreviewWindowTest, preview_staysHidden_whenTheFirstMovieCannotBeMade)
{
    EXPECT_FALSE(preview(QStringLiteral("http://h/none.mov")));
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(PreviewWindowTest, movie_isFitted_whenTheWindowIsResized)
{
    ASSERT_TRUE(preview(other)); // 200 x 116 with its bar
    m_window.resize(600, 116);
    EXPECT_EQ(viewer().geometry(), QRect(200, 0, 200, 116));
    m_window.resize(200, 316);
    EXPECT_EQ(viewer().geometry(), QRect(0, 100, 200, 116));
    m_window.resize(400, 232);
    EXPECT_EQ(viewer().geometry(), QRect(0, 0, 400, 232));
}

TEST_F(PreviewWindowTest, movie_fillsTheRoomAboveTheBar_whenItIsEnlarged)
{
    ASSERT_TRUE(preview(other));
    m_window.resize(400, 232); // twice the movie with its bar, which itself stays as high as it is
    EXPECT_TRUE(waitUntil([&] { return viewer().movieView().frame() == Rect{{0, 0}, {400, 216}}; }));
}

TEST_F(PreviewWindowTest, viewer_hasTheFocus_whenTheNextMoviePlays)
{
    ASSERT_TRUE(preview(small));
    viewer().clearFocus();
    ASSERT_TRUE(preview(other));
    EXPECT_EQ(m_window.focusWidget(), &viewer());
}

TEST_F(PreviewWindowTest, viewer_staysWhereItWas_whenThereIsNoMovie)
{
    m_window.show();
    const QRect before = viewer().geometry();
    m_window.resize(100, 600);
    EXPECT_EQ(viewer().geometry(), before);
}

TEST_F(PreviewWindowTest, window_takesTheSize_whenALoadingMovieKnowsIt)
{
    m_movies.describe(slow, {.naturalSize = {300, 150}, .loadsAfter = 1});
    ASSERT_TRUE(preview(slow));
    EXPECT_NE(m_window.size(), QSize(300, 166));
    m_timers.advance(2);
    EXPECT_EQ(m_window.size(), QSize(300, 166));
    EXPECT_EQ(viewer().geometry(), QRect(0, 0, 300, 166));
    EXPECT_EQ(viewer().movie()->rate(), 1);
}

TEST_F(PreviewWindowTest, viewer_hasTheUsualShape_whileTheMovieLoads)
{
    m_movies.describe(slow, {.naturalSize = {300, 150}, .loadsAfter = 1});
    ASSERT_TRUE(preview(slow));
    EXPECT_EQ(m_window.size(), QSize(480, 286));
    EXPECT_EQ(viewer().geometry(), QRect(0, 0, 480, 286));
    m_window.resize(680, 286);
    EXPECT_EQ(viewer().geometry(), QRect(100, 0, 480, 286));
}

TEST_F(PreviewWindowTest, viewer_isTheBarAlone_whenTheMovieHasNoPicture)
{
    m_movies.describe(other, {.naturalSize = {0, 0}});
    ASSERT_TRUE(preview(other));
    EXPECT_EQ(m_window.size(), QSize(480, 286));
    EXPECT_EQ(viewer().geometry(), QRect(0, 135, 480, 16));
}

TEST_F(PreviewWindowTest, movieFailed_isTold_whenALoadingMovieTurnsOutToBeNone)
{
    m_movies.describe(slow, {.loadsAfter = 1, .failsLoading = true});
    QSignalSpy failures(&m_window, &PreviewWindow::movieFailed);
    ASSERT_TRUE(preview(slow));
    m_timers.advance(2);
    EXPECT_TRUE(waitUntil([&] { return failures.size() == 1; }));
    EXPECT_EQ(viewer().movie(), nullptr);
}

TEST_F(PreviewWindowTest, movieFailed_isNotTold_whenAnotherMovieIsShownMeanwhile)
{
    m_movies.describe(slow, {.loadsAfter = 1, .failsLoading = true});
    QSignalSpy failures(&m_window, &PreviewWindow::movieFailed);
    ASSERT_TRUE(preview(slow));
    m_timers.advance(2);
    ASSERT_TRUE(preview(small));
    QCoreApplication::processEvents();
    EXPECT_EQ(failures.size(), 0);
    EXPECT_EQ(viewer().movie()->url(), QUrl(small));
}

TEST_F(PreviewWindowTest, movieFailed_isNotTold_whenTheWindowWasClosedMeanwhile)
{
    m_movies.describe(slow, {.loadsAfter = 1, .failsLoading = true});
    QSignalSpy failures(&m_window, &PreviewWindow::movieFailed);
    ASSERT_TRUE(preview(slow));
    m_window.close();
    m_timers.advance(2);
    ASSERT_TRUE(waitUntil([&] { return !viewer().movie(); }));
    EXPECT_EQ(failures.size(), 0);
}

TEST_F(PreviewWindowTest, close_stopsTheMovie)
{
    ASSERT_TRUE(preview(small));
    m_window.close();
    EXPECT_EQ(viewer().movie()->rate(), 0);
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(PreviewWindowTest, window_fitsOntoTheScreen_whenTheMovieDoesNot)
{
    m_movies.describe(other, {.naturalSize = {9000, 4500}});
    ASSERT_TRUE(preview(other));
    const QSize room = m_window.screen()->availableSize();
    EXPECT_LE(m_window.width(), room.width());
    EXPECT_LE(m_window.height(), room.height());
    EXPECT_EQ(viewer().width(), m_window.width());
}

} // namespace kestro
