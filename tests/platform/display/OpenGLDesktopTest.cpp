// The desktop on Qt's off-screen platform, where windows are shown by Qt's own means, with OpenGL.

#include "platform/base/Log.h"
#include "platform/display/DisplayTest.h"
#include "platform/display/XvfbServer.h"
#include "platform/display/desktop/QtDesktop.h"
#include "platform/display/gl/OpenGLDevice.h"
#include "platform/display/surface/Surface.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QWindow>

namespace kestro {

namespace {

class OpenGLDesktopTest : public testing::Test {
protected:
    [[nodiscard]] Screen& screen() const { return *desktop.mainScreen(); }
    [[nodiscard]] static QWindow* nativeWindow() { return QGuiApplication::allWindows().value(0); }
    [[nodiscard]] static QColor shownAt(int x, int y)
    {
        const QWindow* const window = nativeWindow();
        const QImage image = window->screen()->grabWindow(window->winId()).toImage();
        return image.valid(x, y) ? image.pixelColor(x, y) : QColor();
    }

    SystemClock clock;
    SeededRandom random{1};
    QtDesktop desktop{clock, random};
};

} // namespace

TEST_F(OpenGLDesktopTest, surface_isAWindowForOpenGL_untilTheContextIsLost)
{
    ASSERT_NE(desktop.openGL(), nullptr);
    ASSERT_NE(screen().surface().openGLWindow(), nullptr);
    EXPECT_EQ(screen().surface().openGLWindow()->surfaceType(), QSurface::OpenGLSurface);
    FillView view({{0, 0}, {40, 40}}, Qt::red);
    Window window({{{100, 100}, {40, 40}}, &screen(), QStringLiteral("window")});
    window.setContentView(&view);
    window.orderFront();
    desktop.showSurfaces();
    ASSERT_TRUE(waitUntil([] { return nativeWindow()->isExposed(); }));
    screen().update();
    EXPECT_FALSE(static_cast<OpenGLDevice&>(*desktop.openGL()).isLost());

    const LogCapture capture([](const QString&) {});
    static_cast<OpenGLDevice&>(*desktop.openGL()).lose();
    window.setFrameOrigin({200, 100});
    screen().update();
    EXPECT_EQ(screen().surface().openGLWindow(), nullptr);
    EXPECT_TRUE(nativeWindow()->isVisible());
    EXPECT_EQ(nativeWindow()->surfaceType(), QSurface::RasterSurface);
    const int height = nativeWindow()->height();
    EXPECT_TRUE(waitUntil([&] { return shownAt(201, height - 101) == QColor(Qt::red); }));
    EXPECT_EQ(shownAt(101, height - 101), QColor(Qt::black));
}

} // namespace kestro
