// Real movies drawn with OpenGL, beside the same drawn in software.

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/gl/OpenGLDevice.h"
#include "platform/display/gl/RendererChoice.h"
#include "platform/display/scene/Renderer.h"
#include "platform/display/surface/image/ImageSurface.h"
#include "platform/display/view/Layer.h"
#include "platform/display/view/Window.h"
#include "platform/movie/CardOpenGL.h"
#include "platform/movie/MovieTeardown.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/MpvRenderer.h"
#include "platform/movie/OpenGLTeardown.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/QTMovieView.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace kestro;

static std::shared_ptr<QTMovie> openWith(const std::shared_ptr<OpenGL>& openGL, const char* name)
{
    MpvMovieLibrary library({.audioOutputs = "null"});
    library.setOpenGL(openGL);
    return settled(library.movieWithURL(testMovie(name)));
}

/// How far apart the pictures are, per channel, on the average.
static double difference(const QImage& one, const QImage& other)
{
    if (one.size() != other.size() || one.isNull()) return 255;
    double sum = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            sum +=
                std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
        }
    return sum / (3.0 * one.width() * one.height());
}

namespace {

/// A screen that shows one movie over its whole width.
class Show final {
public:
    Show(std::shared_ptr<OpenGL> openGL, const std::shared_ptr<QTMovie>& movie)
        : m_desktop({{{0, 0}, {480, 300}}}, 1, m_timers, m_clock, m_random, std::move(openGL))
        , m_window({{{0, 0}, {480, 300}}, m_desktop.mainScreen(), QStringLiteral("movie")})
    {
        m_window.setContentView(&m_view);
        m_view.setMovie(movie);
        m_window.orderFront();
    }

    [[nodiscard]] const QImage& picture() const
    {
        return ImageDesktop::surfaceOf(*m_desktop.mainScreen()).image();
    }
    /// The number that the movie's part of the screen shows.
    [[nodiscard]] int number() const { return numberIn(picture().copy(0, 15, 480, 270)); }
    [[nodiscard]] Window& window() { return m_window; }

private:
    ManualClock m_clock;
    ManualTimerSource m_timers{m_clock};
    SeededRandom m_random{1};
    ImageDesktop m_desktop;
    QTMovieView m_view{{{0, 15}, {480, 270}}};
    Window m_window;
};

} // namespace

TEST(OpenGLMovie, drawsWithOpenGL)
{
    ASSERT_NE(testOpenGL(), nullptr);
    const auto movie = openMovie(testMovie("plain.mp4"));
    movie->play();
    EXPECT_TRUE(movie->layer().drawsWithOpenGL());
    EXPECT_FALSE(openWith(nullptr, "plain.mp4")->layer().drawsWithOpenGL());
}

TEST(OpenGLMovie, looksAsInSoftware_onTheScreen)
{
    for (const char* name : {"plain.mp4", "rotated180.mp4", "plain.webm"}) {
        const auto fast = openWith(testOpenGL(), name);
        const auto plain = openWith(nullptr, name);
        Show fastShow(testOpenGL(), fast);
        Show plainShow(nullptr, plain);
        for (const int number : {5, 42}) {
            fast->setCurrentTime({number * 20, 600});
            plain->setCurrentTime({number * 20, 600});
            const auto upright = [&](const Show& show) {
                return QLatin1String(name) == QLatin1String("rotated180.mp4")
                           ? numberIn(
                                 show.picture().copy(0, 15, 480, 270).transformed(QTransform().rotate(180)))
                           : show.number();
            };
            ASSERT_TRUE(waitUntil([&] {
                return upright(fastShow) == number && upright(plainShow) == number;
            })) << name
                << ' ' << upright(fastShow) << ' ' << upright(plainShow);
            EXPECT_LT(difference(fastShow.picture(), plainShow.picture()), 4) << name;
        }
        EXPECT_TRUE(fast->layer().drawsWithOpenGL());
        EXPECT_FALSE(plain->layer().drawsWithOpenGL());
    }
}

TEST(OpenGLMovie, fadesWithItsWindow_asInSoftware)
{
    const auto fast = openWith(testOpenGL(), "plain.mp4");
    const auto plain = openWith(nullptr, "plain.mp4");
    Show fastShow(testOpenGL(), fast);
    Show plainShow(nullptr, plain);
    fast->setCurrentTime({42 * 20, 600});
    plain->setCurrentTime({42 * 20, 600});
    ASSERT_TRUE(waitUntil([&] { return fastShow.number() == 42 && plainShow.number() == 42; }))
        << fastShow.number() << ' ' << plainShow.number();
    const QImage bright = fastShow.picture().copy();
    fastShow.window().setAlphaValue(0.5F);
    plainShow.window().setAlphaValue(0.5F);
    ASSERT_TRUE(waitUntil([&] { return difference(fastShow.picture(), bright) > 8; }));
    EXPECT_TRUE(waitUntil([&] { return difference(fastShow.picture(), plainShow.picture()) < 4; }));
}

TEST(OpenGLMovie, goesOnInSoftwareWhereItWas_whenTheContextIsLost)
{
    const auto made = OpenGLDevice::create();
    ASSERT_TRUE(made);
    const std::shared_ptr<OpenGLDevice> device = made.value();
    const auto movie = openWith(device, "sound.mp4");
    Show show(device, movie);
    movie->setCurrentTime({20 * 20, 600});
    movie->play();
    ASSERT_TRUE(waitUntil([&] { return show.number() > 22; }));
    const int before = show.number();

    std::vector<QString> lines;
    const LogCapture capture([&lines](const QString& line) { lines.push_back(line); });
    device->lose();
    int first = -1;
    ASSERT_TRUE(waitUntil([&] {
        if (movie->layer().drawsWithOpenGL()) return false;
        first = show.number(); // none, 0, until the other player has a picture
        return first > 0;
    }));
    EXPECT_GE(first, before);
    EXPECT_LT(first, 59);
    EXPECT_EQ(movie->rate(), 1);
    EXPECT_FALSE(movie->layer().drawsWithOpenGL());
    EXPECT_TRUE(waitUntil([&] { return movie->rate() == 0 && show.number() == 59; }));
    EXPECT_EQ(movie->currentTime(), movie->duration());
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines.front().contains(QLatin1String("drawing in software")));
}

TEST(OpenGLMovie, staysStopped_whenTheContextIsLost)
{
    const auto made = OpenGLDevice::create();
    ASSERT_TRUE(made);
    const LogCapture capture([](const QString&) {});
    const auto movie = openWith(made.value(), "plain.mp4");
    Show show(made.value(), movie);
    movie->setCurrentTime({33 * 20, 600});
    ASSERT_TRUE(waitUntil([&] { return show.number() == 33; }));
    made.value()->lose();
    show.window().setAlphaValue(0.99F);
    ASSERT_TRUE(waitUntil([&] { return !movie->layer().drawsWithOpenGL() && movie->layer().hasFrame(); }));
    show.window().setAlphaValue(1);
    EXPECT_TRUE(waitUntil([&] { return show.number() == 33; }));
    EXPECT_EQ(movie->rate(), 0);
}

TEST(OpenGLMovie, isDrawnInSoftware_whenTheContextWasLostBefore)
{
    const auto made = OpenGLDevice::create();
    ASSERT_TRUE(made);
    const LogCapture capture([](const QString&) {});
    made.value()->lose();
    const auto movie = openWith(made.value(), "plain.mp4");
    movie->play();
    EXPECT_FALSE(movie->layer().drawsWithOpenGL());
    EXPECT_TRUE(waitUntil([&] { return movie->layer().hasFrame(); }));
    EXPECT_GE(numberIn(drawn(*movie)), 0);
}

TEST(OpenGLMovie, freesThePlayer_onceItIsLetGoOf)
{
    finishMovieTeardown();
    std::weak_ptr<OpenGL> watched;
    {
        const auto made = OpenGLDevice::create();
        ASSERT_TRUE(made);
        watched = std::shared_ptr<OpenGL>(made.value());
        const auto movie = openWith(made.value(), "sound.mp4");
        movie->play();
        ASSERT_TRUE(waitUntil([&] { return movie->layer().hasFrame(); }));
    }
    EXPECT_FALSE(watched.expired()); // the renderer still has to be freed with it
    EXPECT_TRUE(waitUntil([&] { return watched.expired(); }));
    finishMovieTeardown();
}

TEST(OpenGLTeardown, finishAll_freesWhatIsStillThere)
{
    const auto made = OpenGLDevice::create();
    ASSERT_TRUE(made);
    for (int turn = 0; turn < 3; ++turn)
        openWith(made.value(), "plain.mp4")->play();
    EXPECT_GT(made.value().use_count(), 1);
    OpenGLTeardown::finishAll();
    EXPECT_EQ(made.value().use_count(), 1);
    finishMovieTeardown();
}

TEST(OpenGLMovie, saysOnceWhoDecodesIt_whereACardMay)
{
    QStringList lines;
    const LogCapture capture([&lines](const QString& line) {
        if (line.contains("decoded by")) lines += line;
    });
    const auto card = std::make_shared<CardOpenGL>(testOpenGL());
    const auto movie = openWith(card, "plain.mp4");
    Show show(card, movie);
    movie->setAttribute(MovieAttribute::Loops, true);
    movie->play();
    ASSERT_TRUE(waitUntil([&] { return show.number() > 40; }));
    ASSERT_TRUE(waitUntil([&] { return show.number() < 20; }));
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.first().endsWith("plain.mp4: decoded by the processor.")) << qPrintable(lines.first());
}

TEST(OpenGLMovie, saysNothingOfDecoders_whereNoCardMay)
{
    QStringList lines;
    const LogCapture capture([&lines](const QString& line) { lines += line; });
    const auto movie = openWith(testOpenGL(), "plain.mp4");
    Show show(testOpenGL(), movie);
    movie->play();
    ASSERT_TRUE(waitUntil([&] { return show.number() > 5; }));
    EXPECT_EQ(lines, QStringList());
}

TEST(MpvRenderer, openGLParameters_nameTheDisplayThatThereIs)
{
    mpv_opengl_init_params init{};
    int connection = 0;
    const auto displaysIn = [&init](const DisplayConnection& display) {
        std::vector<std::pair<mpv_render_param_type, void*>> named;
        const auto params = openGLParameters(init, display);
        for (const auto& [type, value] : params)
            if (type == MPV_RENDER_PARAM_X11_DISPLAY || type == MPV_RENDER_PARAM_WL_DISPLAY)
                named.emplace_back(type, value);
        EXPECT_EQ(params.front().type, MPV_RENDER_PARAM_API_TYPE);
        EXPECT_EQ(params.back().type, MPV_RENDER_PARAM_INVALID);
        return named;
    };
    using Named = std::vector<std::pair<mpv_render_param_type, void*>>;
    EXPECT_EQ(displaysIn({.x11 = &connection}), (Named{{MPV_RENDER_PARAM_X11_DISPLAY, &connection}}));
    EXPECT_EQ(displaysIn({.wayland = &connection}), (Named{{MPV_RENDER_PARAM_WL_DISPLAY, &connection}}));
    EXPECT_EQ(displaysIn({}), Named());
}

TEST(MpvRenderer, leaksFences_knowsTheVersionsThatDo)
{
    for (const char* version : {"mpv 0.40.0", "mpv v0.41.0", "mpv v0.40.0-12-gabcdef"})
        EXPECT_TRUE(leaksFences(version)) << version;
    for (const char* version : {"mpv 0.35.1", "mpv 0.4.0", "mpv v0.39.0", "mpv 0.42.0", ""})
        EXPECT_FALSE(leaksFences(version)) << version;
}
