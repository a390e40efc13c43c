#include "widgets/SurfaceWidget.h"

#include "platform/display/desktop/Cursor.h"
#include "platform/display/surface/Surface.h"
#include "widgets/WidgetsTest.h"

namespace kestro {

namespace {

class SurfaceWidgetTest : public WidgetsTest {
protected:
    SurfaceWidgetTest() { widget.resize(200, 100); }

    SurfaceWidget widget{nullptr, services};
};

/// A window over the whole screen of a widget.
struct Filled {
    Filled(SurfaceWidget& widget, const QColor& colour)
        : view({{0, 0}, widget.screen().frame().size}, colour)
        , window({widget.screen().frame(), &widget.screen(), QStringLiteral("test")})
    {
        window.setContentView(&view);
        window.orderFront();
    }
    ColourView view;
    Window window;
};

} // namespace

TEST_F(SurfaceWidgetTest, screen_hasTheSizeOfTheWidget_whenResized)
{
    widget.show();
    EXPECT_EQ(widget.screen().frame(), (Rect{{0, 0}, {200, 100}}));
    widget.resize(300, 50);
    EXPECT_EQ(widget.screen().frame(), (Rect{{0, 0}, {300, 50}}));
    EXPECT_EQ(widget.screen().surface().canvas().size(), QSize(300, 50));
}

TEST_F(SurfaceWidgetTest, screen_liesOnTheWidgetsMonitor)
{
    const QSize monitor = widget.QWidget::screen()->size();
    const Size expected{static_cast<float>(monitor.width()), static_cast<float>(monitor.height())};
    EXPECT_EQ(widget.screen().monitorSize(), expected);
    widget.resize(300, 50);
    EXPECT_EQ(widget.screen().monitorSize(), expected);
}

TEST_F(SurfaceWidgetTest, desktop_isOneScreenAndItsServices)
{
    EXPECT_EQ(widget.desktop().screens(), std::vector<Screen*>{&widget.screen()});
    EXPECT_EQ(&widget.desktop().timers(), &timers);
    EXPECT_EQ(&widget.desktop().clock(), &clock);
    EXPECT_EQ(&widget.desktop().random(), &random);
    EXPECT_EQ(widget.desktop().openGL(), nullptr);
}

TEST_F(SurfaceWidgetTest, widget_isBlack_whenNothingIsOnItsScreen)
{
    EXPECT_EQ(at(widget, 10, 10), QColor(Qt::black));
    EXPECT_EQ(at(widget, 199, 99), QColor(Qt::black));
}

TEST_F(SurfaceWidgetTest, window_isShownFromTheLowerLeftCorner)
{
    ColourView red({{0, 0}, {40, 20}}, Qt::red);
    Window window({{{10, 5}, {40, 20}}, &widget.screen(), QStringLiteral("red")});
    window.setContentView(&red);
    window.orderFront();
    widget.screen().update();
    EXPECT_EQ(at(widget, 10, 94), QColor(Qt::red));
    EXPECT_EQ(at(widget, 49, 75), QColor(Qt::red));
    EXPECT_EQ(at(widget, 9, 94), QColor(Qt::black));
    EXPECT_EQ(at(widget, 49, 95), QColor(Qt::black));
    EXPECT_EQ(at(widget, 50, 75), QColor(Qt::black));
    EXPECT_EQ(at(widget, 49, 74), QColor(Qt::black));
}

TEST_F(SurfaceWidgetTest, widget_paintsOnlyWhatChanged)
{
    ColourView ground({{0, 0}, {200, 100}}, Qt::blue);
    ColourView spot({{20, 30}, {16, 8}}, Qt::red);
    ground.addSubview(spot);
    Window window({{{0, 0}, {200, 100}}, &widget.screen(), QStringLiteral("test")});
    window.setContentView(&ground);
    window.orderFront();
    widget.show();
    PaintWatch watch(widget);
    ASSERT_TRUE(waitUntil([&] { return watch.painted.boundingRect() == widget.rect(); }));
    watch.painted = {};
    spot.setColour(Qt::green);
    ASSERT_TRUE(waitUntil([&] { return !watch.painted.isEmpty(); }));
    EXPECT_EQ(watch.painted, QRegion(20, 62, 16, 8));
    EXPECT_EQ(at(widget, 25, 65), QColor(Qt::green));
}

TEST_F(SurfaceWidgetTest, widget_paintsNothing_whenNothingChanges)
{
    const Filled filled(widget, Qt::blue);
    widget.show();
    PaintWatch watch(widget);
    ASSERT_TRUE(waitUntil([&] { return !watch.painted.isEmpty(); }));
    QCoreApplication::processEvents();
    watch.painted = {};
    for (int turn = 0; turn < 20; ++turn) {
        widget.screen().update();
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(watch.painted.isEmpty());
}

TEST_F(SurfaceWidgetTest, owner_isToldBeforeTheNextPicture_whenTheWidgetIsResized)
{
    Filled filled(widget, Qt::blue);
    widget.show();
    widget.desktop().setScreenObserver(
        {{}, [&filled](Screen& screen) { filled.window.setFrameDisplay(screen.frame(), false); }, {}});
    widget.resize(260, 140);
    EXPECT_EQ(at(widget, 259, 139), QColor(Qt::blue));
    EXPECT_EQ(at(widget, 0, 0), QColor(Qt::blue));
}

TEST_F(SurfaceWidgetTest, observer_isNotTold_whenTheSizeStays)
{
    int told = 0;
    widget.show();
    widget.desktop().setScreenObserver({{}, [&told](Screen&) { ++told; }, {}});
    widget.hide();
    widget.show();
    EXPECT_FALSE(widget.desktop().follow());
    EXPECT_EQ(told, 0);
}

TEST_F(SurfaceWidgetTest, picture_isThereAgain_whenTheWidgetWasHidden)
{
    Filled filled(widget, Qt::blue);
    widget.show();
    widget.hide();
    filled.view.setColour(Qt::green);
    widget.screen().update();
    widget.show();
    EXPECT_EQ(at(widget, 100, 50), QColor(Qt::green));
}

TEST_F(SurfaceWidgetTest, cursor_vanishesOverTheWidgetAlone_whenHidden)
{
    widget.desktop().cursor().hide();
    EXPECT_EQ(widget.cursor().shape(), Qt::BlankCursor);
    widget.desktop().cursor().unhide();
    EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(SurfaceWidgetTest, surface_canBeComposedInto_whenTheWidgetHasNoSize)
{
    widget.resize(0, 0);
    widget.show();
    widget.screen().update();
    EXPECT_EQ(widget.screen().surface().canvas().size(), QSize(1, 1));
}

TEST_F(SurfaceWidgetTest, canvas_isAlignedForMovingContent)
{
    widget.resize(33, 21);
    widget.show();
    QImage& canvas = widget.screen().surface().canvas();
    EXPECT_EQ(canvas.bytesPerLine() % 64, 0);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(canvas.bits()) % 64, 0U);
    EXPECT_EQ(canvas.format(), QImage::Format_RGB32);
}

} // namespace kestro
