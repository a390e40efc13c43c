#include "platform/display/DisplayTest.h"

namespace kestro {

namespace {

class DenseScreenTest : public DisplayTest {
protected:
    DenseScreenTest()
        : DisplayTest({{{0, 0}, {533, 667}}}, 1.5)
    {
        surface().resize({800, 1000});
        screen().setFrame({{0, 0}, {533, 667}});
    }
};

} // namespace

TEST_F(DenseScreenTest, fullScreenMovie_coversTheWholeCanvasOfAFractionalRatio)
{
    View movie({{0, 0}, {533, 667}});
    FakeLayer layer;
    movie.setLayer(&layer);
    Window window({{{0, 0}, {533, 667}}, &screen(), QStringLiteral("movie")});
    window.setContentView(&movie);
    window.orderFront();
    screen().update();
    EXPECT_EQ(layer.targets.back().width, 800);
    EXPECT_EQ(layer.targets.back().height, 1000);
    EXPECT_EQ(surface().image().pixel(799, 999), layer.pixelAt(799, 999));
}

TEST_F(DenseScreenTest, rectangles_areRoundedToPixelsNotTruncated)
{
    FillView red({{0, 0}, {11, 11}}, Qt::red);
    Window window({{{1, 1}, {11, 11}}, &screen(), QStringLiteral("red")});
    window.setContentView(&red);
    window.orderFront();
    screen().update();
    EXPECT_EQ(at(1, 5), QColor(Qt::black));
    EXPECT_EQ(at(2, 5), QColor(Qt::red));
    EXPECT_EQ(at(17, 5), QColor(Qt::red));
    EXPECT_EQ(at(18, 5), QColor(Qt::black));
    EXPECT_EQ(at(5, 17), QColor(Qt::red));
    EXPECT_EQ(at(5, 18), QColor(Qt::black));
}

} // namespace kestro
