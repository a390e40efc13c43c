#include "platform/display/view/Painter.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// Draws as a view at (10, 5) in a backing store 50 points high would.
class PainterTest : public testing::Test {
protected:
    PainterTest()
    {
        store.fill(Qt::transparent);
        device.begin(&store);
    }
    [[nodiscard]] QColor at(int x, int y) const { return store.pixelColor(x, 49 - y); }
    [[nodiscard]] static Picture plain(const QColor& colour, int width, int height)
    {
        Picture picture = blankPicture({static_cast<float>(width), static_cast<float>(height)});
        picture.image.fill(colour);
        return picture;
    }

    QImage store{100, 50, QImage::Format_ARGB32_Premultiplied};
    QPainter device;
};

} // namespace

TEST_F(PainterTest, fill_replacesWhatIsThere_itsAlphaIncluded)
{
    Painter painter(device, {10, 5}, 50, 1);
    painter.fill({{0, 0}, {20, 10}}, Qt::red);
    painter.fill({{0, 0}, {10, 10}}, QColor(0, 0, 255, 100));
    painter.fill({{10, 5}, {10, 5}}, Qt::transparent);
    EXPECT_EQ(at(15, 10).alpha(), 100);
    EXPECT_EQ(at(15, 10).red(), 0);
    EXPECT_EQ(at(25, 7), QColor(Qt::red));
    EXPECT_EQ(at(25, 12).alpha(), 0);
    EXPECT_EQ(at(9, 10).alpha(), 0);
    EXPECT_EQ(at(15, 4).alpha(), 0);
    EXPECT_EQ(at(15, 15).alpha(), 0);
}

TEST_F(PainterTest, fill_keepsToAClipOfManyParts)
{
    const QRegion clip = QRegion(0, 0, 100, 1) + QRegion(40, 10, 5, 30) + QRegion(60, 20, 30, 2);
    device.setClipRegion(clip);
    Painter painter(device, {0, 0}, 50, 1);
    for (const QColor& colour : {QColor(Qt::red), QColor(0, 0, 255, 100)}) {
        painter.fill({{-10, -10}, {95, 95}}, colour);
        for (int x = 0; x < 100; ++x)
            for (int y = 0; y < 50; ++y) {
                const bool isFilled = clip.contains(QPoint(x, y)) && x < 85;
                ASSERT_EQ(store.pixelColor(x, y).alpha(), isFilled ? colour.alpha() : 0) << x << ' ' << y;
            }
    }
}

TEST_F(PainterTest, draw_laysPictureOver_byItsOpacity)
{
    Painter painter(device, {10, 5}, 50, 1);
    painter.fill({{0, 0}, {20, 10}}, Qt::white);
    painter.draw(plain(Qt::black, 4, 4), {{0, 0}, {4, 4}}, Compositing::SourceOver, 0.5);
    EXPECT_NEAR(at(12, 7).red(), 128, 1);
    EXPECT_EQ(at(12, 7).alpha(), 255);
    painter.draw(plain(Qt::black, 4, 4), {{0, 0}, {4, 4}}, Compositing::SourceOver, 0);
    EXPECT_NEAR(at(12, 7).red(), 128, 1);
}

TEST_F(PainterTest, drawOnBlack_replacesThePart_byThePictureOverBlack)
{
    Painter painter(device, {10, 5}, 50, 1);
    painter.fill({{0, 0}, {40, 30}}, QColor(0, 0, 255, 100));
    Picture opaque{QImage(20, 10, QImage::Format_RGB32), {20, 10}};
    opaque.image.fill(QColor(200, 100, 50));
    for (const Picture& picture :
         {opaque, plain(QColor(200, 100, 50), 20, 10), plain(QColor(200, 100, 50), 7, 3)}) {
        painter.fill({{0, 0}, {40, 30}}, Qt::blue);
        painter.drawOnBlack(picture, {{2, 2}, {20, 10}}, {{2, 2}, {19, 5}}, 0.5);
        EXPECT_NEAR(at(15, 10).red(), 100, 1);
        EXPECT_NEAR(at(15, 10).green(), 50, 1);
        EXPECT_NEAR(at(15, 10).blue(), 25, 1);
        EXPECT_EQ(at(15, 10).alpha(), 255);
        EXPECT_NEAR(at(30, 10).red(), 100, 1); // the last column of the part
        EXPECT_EQ(at(31, 10), QColor(Qt::blue));
        EXPECT_EQ(at(15, 12), QColor(Qt::blue));
        EXPECT_EQ(at(11, 10), QColor(Qt::blue));
    }
}

TEST_F(PainterTest, drawOnBlack_keepsToTheClip)
{
    device.setClipRect(0, 0, 20, 50);
    Painter painter(device, {0, 0}, 50, 1);
    Picture opaque{QImage(40, 10, QImage::Format_RGB32), {40, 10}};
    opaque.image.fill(Qt::white);
    painter.drawOnBlack(opaque, {{0, 0}, {40, 10}}, {{0, 0}, {40, 10}}, 1);
    EXPECT_EQ(at(19, 5), QColor(Qt::white));
    EXPECT_EQ(at(20, 5).alpha(), 0);
}

TEST_F(PainterTest, draw_copyReplaces_andWithoutOpacityWipesClear)
{
    Painter painter(device, {10, 5}, 50, 1);
    painter.fill({{0, 0}, {20, 10}}, Qt::white);
    painter.draw(plain(Qt::red, 4, 4), {{0, 0}, {4, 4}}, Compositing::Copy, 0.5);
    EXPECT_NEAR(at(12, 7).alpha(), 128, 1);
    EXPECT_EQ(at(12, 7).green(), 0);
    painter.draw(plain(Qt::red, 4, 4), {{0, 0}, {4, 4}}, Compositing::Copy, 0);
    EXPECT_EQ(at(12, 7).alpha(), 0);
    EXPECT_EQ(at(15, 7), QColor(Qt::white));
}

TEST_F(PainterTest, draw_scalesSmoothly)
{
    Painter painter(device, {0, 0}, 50, 1);
    Picture picture = plain(Qt::black, 2, 1);
    picture.image.setPixelColor(1, 0, Qt::white);
    painter.draw(picture, {{0, 0}, {40, 10}}, Compositing::SourceOver, 1);
    EXPECT_EQ(at(1, 5), QColor(Qt::black));
    EXPECT_EQ(at(38, 5), QColor(Qt::white));
    EXPECT_GT(at(20, 5).red(), 20);
    EXPECT_LT(at(20, 5).red(), 235);
}

TEST_F(PainterTest, deviceRect_countsFromTheTopInPixels)
{
    const Painter painter(device, {10, 5}, 50, 2);
    EXPECT_EQ(painter.deviceRect({{1, 2}, {3, 4}}), QRectF(22, 78, 6, 8));
}

} // namespace kestro
