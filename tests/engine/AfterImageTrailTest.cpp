#include "engine/AfterImageTrail.h"

#include "engine/EngineTest.h"
#include "platform/display/Painter.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"

#include <QCoreApplication>
#include <QPainter>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kestro {

namespace {

class AfterImageTrailTest : public EngineTest {
protected:
    AfterImageTrailTest() { canvas.fill(Qt::blue); }

    AfterImageTrail::Capture captureOf(QColor colour, Point place, Size size = {40, 20})
    {
        const QString name = colour.name(QColor::HexRgb).mid(1) + ".mov";
        describe(name, {.naturalSize = size, .colour = colour});
        return {movies.movieWithURL(urlOf(name)), 0, place};
    }

    void draw(bool overBackground = false)
    {
        QPainter device(&canvas);
        Painter painter(device, {0, 0}, 100, 1.0);
        trail.draw(painter, overBackground);
    }

    QColor canvasAt(int x, int y) { return canvas.pixelColor(x, 99 - y); }

    int changes = 0;
    AfterImageTrail trail{[this] { ++changes; }};
    QImage canvas{200, 100, QImage::Format_ARGB32_Premultiplied};
};

/// A server on this machine that lets itself be called and never answers.
class SilentServer final {
public:
    SilentServer()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* plain = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(bind(m_socket, plain, length), 0);
        EXPECT_EQ(listen(m_socket, 8), 0);
        EXPECT_EQ(getsockname(m_socket, plain, &length), 0);
        m_port = ntohs(address.sin_port);
    }
    ~SilentServer() { close(m_socket); }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    [[nodiscard]] QUrl url() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/a.mov").arg(m_port)); }

private:
    int m_socket = socket(AF_INET, SOCK_STREAM, 0);
    int m_port = 0;
};

} // namespace

TEST_F(AfterImageTrailTest, queueImageThread_addsAStillAndTellsOfTheChange)
{
    trail.queueImageThread(captureOf(Qt::red, {10, 30}));
    trail.waitForCapture();
    EXPECT_EQ(trail.count(), 1);
    EXPECT_EQ(trail.shades(), std::vector<float>{1.0F});
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 1);
    draw();
    EXPECT_EQ(canvasAt(10, 30), QColor(Qt::red));
    EXPECT_EQ(canvasAt(49, 49), QColor(Qt::red));
    EXPECT_EQ(canvasAt(9, 30), QColor(Qt::blue));
}

TEST_F(AfterImageTrailTest, queueImageThread_keepsTheNewestFive)
{
    for (int i = 0; i < 6; ++i) {
        trail.queueImageThread(captureOf(Qt::red, {static_cast<float>(i), 0}));
        trail.waitForCapture();
        draw();
    }
    EXPECT_EQ(trail.count(), 5);
    trail.queueImageThread(captureOf(Qt::red, {0, 0}));
    trail.waitForCapture();
    EXPECT_EQ(trail.shades().front(), 1.0F);
    EXPECT_NEAR(trail.shades()[1], 0.98F, 1e-6);
    EXPECT_NEAR(trail.shades().back(), 0.92F, 1e-6);
}

TEST_F(AfterImageTrailTest, capture_withoutAPictureStillDropsTheOldestOfFive)
{
    for (int i = 0; i < 5; ++i)
        (void)trail.queueImageNoThread(captureOf(Qt::red, {0, 0}));
    EXPECT_EQ(trail.count(), 5);
    trail.queueImageThread({});
    trail.waitForCapture();
    EXPECT_EQ(trail.count(), 4);
    EXPECT_EQ(logged("movie doesn't have a image."), 1);
    trail.queueImageThread({});
    trail.waitForCapture();
    EXPECT_EQ(trail.count(), 4);
    (void)trail.queueImageNoThread(captureOf(Qt::red, {0, 0}));
    EXPECT_FALSE(trail.queueImageNoThread({}));
    EXPECT_EQ(trail.count(), 4);
    EXPECT_EQ(logged("movie doesn't have a image."), 3);
}

TEST_F(AfterImageTrailTest, queueImageNoThread_addsAStillHereAndNow)
{
    EXPECT_TRUE(trail.queueImageNoThread(captureOf(Qt::green, {10, 30})));
    EXPECT_EQ(trail.count(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 0);
}

// Whichever of the two did not give up would wait for an hour.
TEST_F(AfterImageTrailTest, capture_isGivenUp_whenAServerNeverAnswers)
{
    const SilentServer server;
    MpvMovieLibrary remote({.networkTimeout = 3600});
    const AfterImageTrail::Capture capture{remote.movieWithURL(server.url()), 0, {0, 0}};
    trail.queueImageThread(capture);
    EXPECT_TRUE(trail.isCapturing());
    trail.cancelCapture();
    EXPECT_FALSE(trail.isCapturing());
    trail.queueImageThread(capture);
    trail.queueImageThread(captureOf(Qt::red, {0, 0}));
    trail.waitForCapture();
    EXPECT_EQ(trail.count(), 1);
}

TEST_F(AfterImageTrailTest, area_isTheRectangleAroundAllStills)
{
    EXPECT_TRUE(trail.area().isEmpty());
    (void)trail.queueImageNoThread(captureOf(Qt::red, {10, 20}));
    (void)trail.queueImageNoThread(captureOf(Qt::green, {100, 5}));
    EXPECT_EQ(trail.area(), (Rect{{10, 5}, {130, 35}}));
}

TEST_F(AfterImageTrailTest, draw_agesEachStillByAFiftieth)
{
    (void)trail.queueImageNoThread(captureOf(Qt::white, {0, 0}));
    for (int drawing = 0; drawing < 50; ++drawing) {
        EXPECT_NEAR(trail.shades().front(), 1.0 - 0.02 * drawing, 1e-5);
        draw();
        EXPECT_NEAR(canvasAt(5, 5).red(), 255 * (1.0 - 0.02 * drawing), 2) << drawing;
    }
}

TEST_F(AfterImageTrailTest, draw_keepsTheBlackOfAStillThatFadedAway)
{
    (void)trail.queueImageNoThread(captureOf(Qt::white, {0, 0}));
    for (int drawing = 0; drawing < 60; ++drawing)
        draw();
    canvas.fill(Qt::blue);
    draw();
    EXPECT_EQ(canvasAt(5, 5), QColor(Qt::black));
    EXPECT_EQ(canvasAt(45, 5), QColor(Qt::blue));
}

TEST_F(AfterImageTrailTest, draw_fillsNoBlack_overABackground)
{
    (void)trail.queueImageNoThread(captureOf(Qt::white, {0, 0}));
    for (int drawing = 0; drawing < 60; ++drawing)
        draw();
    canvas.fill(Qt::blue);
    draw(true);
    EXPECT_EQ(canvasAt(5, 5), QColor(Qt::blue));
}

TEST_F(AfterImageTrailTest, draw_laysNewerStillsOnTop)
{
    (void)trail.queueImageNoThread(captureOf(Qt::red, {0, 0}));
    (void)trail.queueImageNoThread(captureOf(Qt::green, {20, 0}));
    draw();
    EXPECT_EQ(canvasAt(10, 10), QColor(Qt::red));
    EXPECT_EQ(canvasAt(30, 10), QColor(Qt::green));
}

} // namespace kestro
