#include "platform/saver/PictureFolderView.h"

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "platform/display/XvfbServer.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/image/ImageSurface.h"
#include "platform/display/view/Window.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr double period = PictureFolderView::fadeSeconds + PictureFolderView::standSeconds;

/// A folder of pictures, and the view of it on a screen that is an image. Time passes only as it is turned.
class PictureFolder : public testing::Test {
protected:
    ~PictureFolder() override { m_window.setContentView(nullptr); }

    void put(const char* name, const QColor& colour, QSize size = {200, 100})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        ASSERT_TRUE(image.save(m_folder.filePath(QString::fromLatin1(name))));
    }
    void putText(const char* name)
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("no picture");
    }
    void start()
    {
        m_window.setContentView(&m_view);
        m_window.orderFront();
        m_view.startAnimation();
    }
    [[nodiscard]] QColor pixel(int x, int y)
    {
        screen().update();
        return ImageDesktop::surfaceOf(screen()).canvas().pixelColor(x, y);
    }
    [[nodiscard]] QColor middle() { return pixel(100, 50); }
    /// Waits for the picture after the present one to be ready and wholly shown; answers its colour.
    [[nodiscard]] QColor nextPicture()
    {
        const QColor before = middle();
        EXPECT_TRUE(waitUntil([&] {
            m_timers.advance(0.05);
            return middle() != before;
        }));
        m_timers.advance(PictureFolderView::fadeSeconds);
        return middle();
    }
    [[nodiscard]] Screen& screen() const { return *m_desktop.screens().front(); }

    QTemporaryDir m_folder;
    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
    ManualClock m_clock;
    SeededRandom m_random{3};
    ManualTimerSource m_timers{m_clock};
    ImageDesktop m_desktop{{{{0, 0}, {200, 100}}}, 1.0, m_timers, m_clock, m_random};
    Window m_window{{{{0, 0}, {200, 100}}, &screen(), QStringLiteral("test")}};
    PictureFolderView m_view{{{0, 0}, {200, 100}}, false, m_folder.path(), m_desktop};
};

} // namespace

TEST_F(PictureFolder, pictures_comeOnceEachRound_andNeverTwiceInARow)
{
    put("a.png", Qt::red);
    put("b.png", Qt::green);
    put("c.png", Qt::blue);
    start();
    QString last;
    for (int round = 0; round < 4; ++round) {
        QStringList shown;
        for (int i = 0; i < 3; ++i)
            shown.append(nextPicture().name());
        EXPECT_NE(shown.first(), last);
        last = shown.last();
        shown.sort();
        EXPECT_EQ(shown, (QStringList{QStringLiteral("#0000ff"), QStringLiteral("#00ff00"),
                                      QStringLiteral("#ff0000")}))
            << round;
    }
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(PictureFolder, picture_standsStill_thenFadesIntoTheNext)
{
    put("a.png", Qt::red);
    put("b.png", Qt::blue);
    start();
    const QColor first = nextPicture();
    EXPECT_TRUE(first == Qt::red || first == Qt::blue);
    const QColor second = first == Qt::red ? Qt::blue : Qt::red;
    m_timers.advance(PictureFolderView::standSeconds - 0.2);
    EXPECT_EQ(middle(), first);
    ASSERT_TRUE(waitUntil([&] {
        m_timers.advance(0.05);
        return middle() != first;
    }));
    m_timers.advance(PictureFolderView::fadeSeconds / 2 - 0.05);
    const QColor mixed = middle();
    EXPECT_GT(mixed.red(), 60);
    EXPECT_GT(mixed.blue(), 60);
    EXPECT_NEAR(mixed.red() + mixed.blue(), 255, 3);
    m_timers.advance(PictureFolderView::fadeSeconds);
    EXPECT_EQ(middle(), second);
}

TEST_F(PictureFolder, picture_isCentredOnBlack_whereItsShapeIsAnother)
{
    put("tall.png", Qt::red, {50, 100});
    start();
    EXPECT_EQ(nextPicture(), QColor(Qt::red));
    EXPECT_EQ(pixel(75, 0), QColor(Qt::red));
    EXPECT_EQ(pixel(124, 99), QColor(Qt::red));
    EXPECT_EQ(pixel(73, 50), QColor(Qt::black));
    EXPECT_EQ(pixel(126, 50), QColor(Qt::black));
}

TEST_F(PictureFolder, onlyPicture_staysWithoutBeingDrawnAgain)
{
    put("a.png", Qt::red);
    start();
    EXPECT_EQ(nextPicture(), QColor(Qt::red));
    for (int i = 0; i < 100; ++i) {
        m_timers.advance(0.5);
        EXPECT_EQ(middle(), QColor(Qt::red));
    }
    put("b.png", Qt::blue);
    EXPECT_EQ(nextPicture(), QColor(Qt::blue)) << "the next round finds it";
    EXPECT_EQ(nextPicture(), QColor(Qt::red));
}

TEST_F(PictureFolder, unreadablePictures_arePassedOverWithOneLineEach)
{
    put("a.png", Qt::red);
    put("b.png", Qt::blue);
    putText("c.jpg");
    putText("d.png");
    putText("notes.txt");
    start();
    QColor last;
    for (int i = 0; i < 8; ++i) {
        const QColor now = nextPicture();
        EXPECT_NE(now, last);
        EXPECT_TRUE(now == Qt::red || now == Qt::blue) << now.name().toStdString();
        last = now;
    }
    EXPECT_EQ(m_log.size(), 2) << m_log.join(u'\n').toStdString();
    m_log.sort();
    EXPECT_TRUE(m_log.value(0).contains(QStringLiteral("c.jpg")));
    EXPECT_TRUE(m_log.value(1).contains(QStringLiteral("d.png")));
}

TEST_F(PictureFolder, view_isBlackWithOneLine_untilThereIsAPicture)
{
    start();
    EXPECT_TRUE(waitUntil([&] { return !m_log.isEmpty(); }));
    EXPECT_EQ(middle(), QColor(Qt::black));
    for (int i = 0; i < 5; ++i) {
        m_timers.advance(PictureFolderView::emptySeconds);
        EXPECT_EQ(middle(), QColor(Qt::black));
    }
    put("a.png", Qt::red);
    EXPECT_EQ(nextPicture(), QColor(Qt::red));
    EXPECT_EQ(m_log.size(), 1) << m_log.join(u'\n').toStdString();
    EXPECT_TRUE(m_log.front().contains(m_folder.path()));
}

TEST_F(PictureFolder, view_looksAgain_whereNoPictureCouldBeRead)
{
    putText("a.png");
    start();
    EXPECT_TRUE(waitUntil([&] { return !m_log.isEmpty(); }));
    put("a.png", Qt::green);
    EXPECT_EQ(nextPicture(), QColor(Qt::green));
    EXPECT_EQ(m_log.size(), 1);
}

TEST_F(PictureFolder, view_goesBlack_whenTheFolderWasEmptied)
{
    put("a.png", Qt::red);
    start();
    EXPECT_EQ(nextPicture(), QColor(Qt::red));
    ASSERT_TRUE(QFile::remove(m_folder.filePath(QStringLiteral("a.png"))));
    EXPECT_EQ(nextPicture(), QColor(Qt::black));
}

TEST_F(PictureFolder, picture_stays_whenStopped_andOthersFollowWhenStartedAgain)
{
    put("a.png", Qt::red);
    put("b.png", Qt::blue);
    start();
    const QColor first = nextPicture();
    m_view.stopAnimation();
    m_timers.advance(10 * period);
    EXPECT_EQ(middle(), first);
    m_view.startAnimation();
    EXPECT_NE(nextPicture(), first);
}

} // namespace kestro
