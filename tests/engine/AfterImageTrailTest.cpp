#include "engine/AfterImageTrail.h"

#include "engine/EngineTest.h"
#include "platform/display/Painter.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>
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
        return {movies.movieWithURL(urlOf(name))->copyForStills(), 0, place};
    }

    void draw(bool overBackground = false, const Rect& hidden = {})
    {
        QPainter device(&canvas);
        Painter painter(device, {0, 0}, 100, 1.0);
        trail.draw(painter, {{0, 0}, {200, 100}}, overBackground, hidden);
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
    const AfterImageTrail::Capture capture{remote.movieWithURL(server.url())->copyForStills(), 0, {0, 0}};
    trail.queueImageThread(capture);
    EXPECT_TRUE(trail.isCapturing());
    trail.cancelCapture();
    EXPECT_FALSE(trail.isCapturing());
    trail.queueImageThread(capture);
    trail.queueImageThread(captureOf(Qt::red, {0, 0}));
    trail.waitForCapture();
    EXPECT_EQ(trail.count(), 1);
}

TEST_F(AfterImageTrailTest, changing_areTheStillsOfThisDrawingAndTheLast_andWhatWasHidden)
{
    const auto isMarked = [this](float x, float y) {
        const auto places = trail.changing();
        const Rect point{{x, y}, {1, 1}};
        return std::any_of(places.begin(), places.end(),
                           [&](const Rect& place) { return !intersectionRect(place, point).isEmpty(); });
    };
    EXPECT_TRUE(trail.changing().empty());
    (void)trail.queueImageNoThread(captureOf(Qt::red, {10, 20}));
    EXPECT_TRUE(isMarked(12, 22));
    draw(false, {{150, 50}, {10, 10}});
    EXPECT_TRUE(isMarked(155, 55));
    EXPECT_FALSE(isMarked(100, 80));
    for (int still = 0; still < 5; ++still)
        (void)trail.queueImageNoThread(captureOf(Qt::green, {100, 5}));
    EXPECT_TRUE(isMarked(12, 22)); // drawn there before, gone now
    EXPECT_TRUE(isMarked(110, 10));
    draw();
    EXPECT_FALSE(isMarked(12, 22));
    EXPECT_FALSE(isMarked(155, 55));
    EXPECT_TRUE(isMarked(110, 10));
}

TEST_F(AfterImageTrailTest, changing_keepsWhatADrawingElsewhereLeftOut)
{
    draw(false, {{150, 50}, {10, 10}});
    QPainter device(&canvas);
    Painter painter(device, {0, 0}, 100, 1.0);
    trail.draw(painter, {{0, 0}, {20, 20}}, false);
    EXPECT_EQ(trail.changing(), (std::vector<Rect>{{{150, 50}, {10, 10}}}));
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

TEST_F(AfterImageTrailTest, draw_isWhatDrawingEachStillWholeOldestFirstGives)
{
    (void)trail.queueImageNoThread(captureOf(Qt::red, {10, 10}));
    draw();
    (void)trail.queueImageNoThread(captureOf(Qt::green, {20, 15}));
    draw();
    (void)trail.queueImageNoThread(captureOf(Qt::white, {25, 5}, {10, 60}));
    for (int drawing = 0; drawing < 10; ++drawing)
        draw();
    const auto shades = trail.shades();
    canvas.fill(Qt::blue);
    draw();
    const auto faint = [](QColor colour, float shade) {
        return QColor(qRound(colour.red() * shade), qRound(colour.green() * shade),
                      qRound(colour.blue() * shade));
    };
    const auto isNear = [](QColor seen, QColor wanted) {
        return qAbs(seen.red() - wanted.red()) <= 2 && qAbs(seen.green() - wanted.green()) <= 2 &&
               qAbs(seen.blue() - wanted.blue()) <= 2;
    };
    for (int x = 0; x < 200; ++x)
        for (int y = 0; y < 100; ++y) {
            QColor wanted = Qt::blue;
            if (x >= 10 && x < 50 && y >= 10 && y < 30) wanted = faint(Qt::red, shades[2]);
            if (x >= 20 && x < 60 && y >= 15 && y < 35) wanted = faint(Qt::green, shades[1]);
            if (x >= 25 && x < 35 && y >= 5 && y < 65) wanted = faint(Qt::white, shades[0]);
            ASSERT_TRUE(isNear(canvasAt(x, y), wanted)) << x << ' ' << y;
        }
}

TEST_F(AfterImageTrailTest, uncovered_isWhatNoStillCovers)
{
    (void)trail.queueImageNoThread(captureOf(Qt::red, {10, 10}));
    (void)trail.queueImageNoThread(captureOf(Qt::red, {30, 20}));
    float area = 0;
    for (const Rect& part : trail.uncovered({{0, 0}, {200, 100}})) {
        area += part.size.width * part.size.height;
        EXPECT_TRUE(intersectionRect(part, {{10, 10}, {40, 20}}).isEmpty());
        EXPECT_TRUE(intersectionRect(part, {{30, 20}, {40, 20}}).isEmpty());
    }
    EXPECT_EQ(area, 200 * 100 - 2 * 40 * 20 + 20 * 10);
}

} // namespace kestro
