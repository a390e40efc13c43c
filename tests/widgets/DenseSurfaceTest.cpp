#include "platform/display/surface/Surface.h"
#include "widgets/WidgetsTest.h"

namespace kestro {

namespace {

/// A view whose every pixel tells its place.
class PlaceLayer final : public Layer {
public:
    [[nodiscard]] bool hasFrame() const override { return true; }
    bool render(const PixelTarget& target) override
    {
        for (int y = 0; y < target.height; ++y)
            for (int x = 0; x < target.width; ++x)
                reinterpret_cast<QRgb*>(target.pixels + y * target.stride)[x] = pixelAt(x, y);
        size = QSize(target.width, target.height);
        return true;
    }
    [[nodiscard]] static QRgb pixelAt(int x, int y) { return qRgb(x % 256, y % 256, (x + y) % 256); }

    QSize size;
};

class DenseSurfaceTest : public WidgetsTest {
protected:
    SurfaceWidget widget{nullptr, services};
};

} // namespace

TEST_F(DenseSurfaceTest, canvas_hasTheDisplaysPixels)
{
    widget.resize(201, 100);
    widget.show();
    EXPECT_EQ(widget.screen().surface().pixelRatio(), 1.5);
    EXPECT_EQ(widget.screen().surface().canvas().size(), QSize(302, 150));
    EXPECT_EQ(widget.screen().frame(), (Rect{{0, 0}, {201, 100}}));
}

TEST_F(DenseSurfaceTest, layer_isShownPixelForPixel)
{
    widget.resize(200, 100);
    widget.show();
    View view({{0, 0}, {200, 100}});
    PlaceLayer layer;
    view.setLayer(&layer);
    Window window({{{0, 0}, {200, 100}}, &widget.screen(), QStringLiteral("movie")});
    window.setContentView(&view);
    window.orderFront();
    widget.screen().update();
    EXPECT_EQ(layer.size, QSize(300, 150));
    const QImage shown = widget.grab().toImage();
    ASSERT_EQ(shown.size(), QSize(300, 150));
    for (const QPoint place :
         {QPoint(0, 0), QPoint(1, 1), QPoint(149, 75), QPoint(298, 149), QPoint(299, 148)})
        EXPECT_EQ(shown.pixel(place), PlaceLayer::pixelAt(place.x(), place.y())) << place.x();
    view.setLayer(nullptr);
}

TEST_F(DenseSurfaceTest, layer_isShownPixelForPixel_whenTheWidgetLiesBetweenPixels)
{
    QWidget parent;
    parent.resize(300, 200);
    SurfaceWidget child(&parent, services);
    child.setGeometry(33, 17, 100, 50); // 49.5 and 25.5 pixels
    parent.show();
    View view({{0, 0}, {100, 50}});
    PlaceLayer layer;
    view.setLayer(&layer);
    Window window({{{0, 0}, {100, 50}}, &child.screen(), QStringLiteral("movie")});
    window.setContentView(&view);
    window.orderFront();
    child.screen().update();
    const QImage shown = parent.grab().toImage();
    for (const QPoint place : {QPoint(2, 2), QPoint(3, 2), QPoint(71, 30), QPoint(120, 70)})
        EXPECT_EQ(shown.pixel(QPoint(50, 26) + place), PlaceLayer::pixelAt(place.x(), place.y()))
            << place.x();
    view.setLayer(nullptr);
}

TEST_F(DenseSurfaceTest, widget_paintsAllPointsThatAChangedPixelTouches)
{
    widget.resize(200, 100);
    ColourView ground({{0, 0}, {200, 100}}, Qt::blue);
    ColourView spot({{21, 31}, {1, 1}}, Qt::red);
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
    EXPECT_TRUE(watch.painted.contains(QRect(21, 68, 1, 1)));
    EXPECT_LT(watch.painted.boundingRect().width(), 5);
    EXPECT_LT(watch.painted.boundingRect().height(), 5);
}

} // namespace kestro
