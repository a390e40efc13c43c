#include "platform/display/desktop/QtDesktop.h"

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/DisplayTest.h"
#include "platform/display/XvfbServer.h"
#include "platform/display/desktop/Cursor.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QWindow>

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// The desktop on Qt's off-screen platform: one monitor, and no X11.
class QtDesktopTest : public testing::Test {
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

TEST_F(QtDesktopTest, mainScreen_coversThePrimaryMonitor)
{
    const QRect monitor = QGuiApplication::primaryScreen()->geometry();
    ASSERT_EQ(desktop.screens().size(), 1U);
    EXPECT_EQ(screen().frame().origin, Point{});
    EXPECT_EQ(screen().frame().size, (Size{float(monitor.width()), float(monitor.height())}));
    EXPECT_EQ(screen().surface().pixelSize(), monitor.size());
    ASSERT_NE(nativeWindow(), nullptr);
    EXPECT_FALSE(nativeWindow()->isVisible());
}

TEST_F(QtDesktopTest, surface_showsWhatWasComposedBeforeAndAfterItAppeared)
{
    FillView view({{0, 0}, {40, 40}}, Qt::red);
    Window window({{{100, 100}, {40, 40}}, &screen(), QStringLiteral("window")});
    window.setContentView(&view);
    window.orderFront();
    screen().update();
    desktop.showSurfaces();
    const int height = nativeWindow()->height();
    EXPECT_TRUE(waitUntil([&] { return shownAt(101, height - 101) == QColor(Qt::red); }));
    EXPECT_EQ(shownAt(99, height - 101), QColor(Qt::black));

    window.setFrameOrigin({200, 100});
    EXPECT_TRUE(waitUntil([&] { return shownAt(201, height - 101) == QColor(Qt::red); }));
    EXPECT_EQ(shownAt(101, height - 101), QColor(Qt::black));
}

TEST_F(QtDesktopTest, canvas_hasAlignedRows)
{
    QImage& canvas = screen().surface().canvas();
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(canvas.constBits()) % 64, 0U);
    EXPECT_EQ(canvas.bytesPerLine() % 64, 0);
    EXPECT_EQ(canvas.format(), QImage::Format_RGB32);
}

TEST_F(QtDesktopTest, closeRequest_isHandedOnAndLeavesTheWindowOpen)
{
    desktop.showSurfaces();
    int requests = 0;
    screen().surface().setInputHandler(
        [&](const InputEvent& event) { requests += event.kind == InputEvent::Kind::CloseRequest ? 1 : 0; });
    EXPECT_FALSE(nativeWindow()->close());
    EXPECT_EQ(requests, 1);
    EXPECT_TRUE(nativeWindow()->isVisible());
}

TEST_F(QtDesktopTest, cursor_vanishesOverTheSurface)
{
    desktop.cursor().hide();
    EXPECT_EQ(nativeWindow()->cursor().shape(), Qt::BlankCursor);
    desktop.cursor().unhide();
    EXPECT_EQ(nativeWindow()->cursor().shape(), Qt::ArrowCursor);
}

} // namespace kestro
