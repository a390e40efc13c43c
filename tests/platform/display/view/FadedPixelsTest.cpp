#include "platform/display/view/FadedPixels.h"

#include <gtest/gtest.h>

using namespace kestro;

/// A picture of opaque pixels that are all different.
static QImage opaqueImage()
{
    QImage image(37, 5, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 6, y * 50, 255 - x));
    return image;
}

TEST(FadedPixels, areTheColoursTimesTheOpacity)
{
    const QImage from = opaqueImage();
    const QRect part(3, 1, 33, 4);
    for (const double opacity : {1.0, 0.98, 0.5, 0.02, 0.0}) {
        QImage to(40, 9, QImage::Format_ARGB32_Premultiplied);
        to.fill(QColor(9, 8, 7));
        ASSERT_TRUE(copyFaded(from, part, to, {2, 5}, opacity));
        for (int y = 0; y < part.height(); ++y)
            for (int x = 0; x < part.width(); ++x) {
                const QColor was = from.pixelColor(part.left() + x, part.top() + y);
                const QColor is = to.pixelColor(2 + x, 5 + y);
                ASSERT_NEAR(is.red(), was.red() * opacity, 1.5) << opacity << ' ' << x << ' ' << y;
                ASSERT_NEAR(is.green(), was.green() * opacity, 1.5);
                ASSERT_NEAR(is.blue(), was.blue() * opacity, 1.5);
                ASSERT_EQ(is.alpha(), 255);
            }
        for (const QPoint outside : {QPoint(1, 5), QPoint(35, 5), QPoint(2, 4), QPoint(36, 8)})
            ASSERT_EQ(to.pixelColor(outside), QColor(9, 8, 7));
    }
}

TEST(FadedPixels, areTheImage_atFullOpacity)
{
    const QImage from = opaqueImage();
    for (const double opacity : {1.0, 7.0}) {
        QImage to(from.size(), QImage::Format_RGB32);
        ASSERT_TRUE(copyFaded(from, from.rect(), to, {0, 0}, opacity));
        EXPECT_EQ(to, from);
    }
}

TEST(FadedPixels, areNotMade_ofOtherPixels_orOutsideTheImages)
{
    const QImage from = opaqueImage();
    QImage to(40, 9, QImage::Format_RGB32);
    to.fill(Qt::red);
    const QImage before = to.copy();
    EXPECT_FALSE(copyFaded(QImage(4, 4, QImage::Format_ARGB32_Premultiplied), {0, 0, 4, 4}, to, {0, 0}, 1));
    EXPECT_FALSE(copyFaded(from, {30, 0, 8, 2}, to, {0, 0}, 1));
    EXPECT_FALSE(copyFaded(from, {0, 0, 8, 2}, to, {33, 0}, 1));
    EXPECT_FALSE(copyFaded(from, {0, 0, 8, 2}, to, {0, -1}, 1));
    EXPECT_FALSE(copyFaded(QImage(), {0, 0, 1, 1}, to, {0, 0}, 1));
    EXPECT_EQ(to, before);
    QImage straight(40, 9, QImage::Format_ARGB32);
    EXPECT_FALSE(copyFaded(from, from.rect(), straight, {0, 0}, 1));
}
