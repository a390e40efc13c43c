#include "engine/CaptionPicture.h"

#include <QPainter>

#include <algorithm>
#include <gtest/gtest.h>

namespace kestro {

namespace {

const CaptionLines all{QStringLiteral("21:45"), QStringLiteral("The Cat"), QStringLiteral("Old Ones")};

/// What is seen of the picture on that ground: the darkest and the brightest grey, 0 … 255.
struct Greys {
    int darkest = 255;
    int brightest = 0;
};

Greys greysOn(const Picture& picture, const QColor& ground)
{
    QImage image(picture.image.size(), QImage::Format_RGB32);
    image.fill(ground);
    QPainter(&image).drawImage(0, 0, picture.image);
    Greys greys;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            greys.darkest = std::min(greys.darkest, qGray(image.pixel(x, y)));
            greys.brightest = std::max(greys.brightest, qGray(image.pixel(x, y)));
        }
    return greys;
}

} // namespace

TEST(CaptionPicture, isNone_whereNothingIsToBeRead)
{
    EXPECT_TRUE(captionPicture({}, {}).isNull());
    EXPECT_FALSE(captionPicture({.clock = QStringLiteral("1"), .title = {}, .detail = {}}, {}).isNull());
}

TEST(CaptionPicture, letters_areBrightAndTheirShadowDark_onAnyGround)
{
    const Picture picture = captionPicture(all, {.letters = 24});
    for (const QColor& ground : {QColor(Qt::white), QColor(Qt::black), QColor(Qt::gray)}) {
        const Greys greys = greysOn(picture, ground);
        EXPECT_GT(greys.brightest, 240);
        EXPECT_LT(greys.darkest, 80);
    }
}

TEST(CaptionPicture, shadow_endsWithinThePicture)
{
    const QImage image = captionPicture(all, {.letters = 24}).image;
    for (int x = 0; x < image.width(); ++x) {
        EXPECT_EQ(qAlpha(image.pixel(x, 0)), 0) << x;
        EXPECT_EQ(qAlpha(image.pixel(x, image.height() - 1)), 0) << x;
    }
    for (int y = 0; y < image.height(); ++y)
        EXPECT_EQ(qAlpha(image.pixel(0, y)), 0) << y;
}

TEST(CaptionPicture, size_isInPoints_onADenseScreenToo)
{
    const Picture plain = captionPicture(all, {.letters = 24});
    const Picture dense = captionPicture(all, {.letters = 24, .pixelRatio = 2});
    EXPECT_EQ(plain.image.width(), static_cast<int>(plain.size.width));
    EXPECT_NEAR(dense.size.width, plain.size.width, 8);
    EXPECT_NEAR(dense.image.width(), 2 * dense.size.width, 1);
}

TEST(CaptionPicture, longLine_losesItsMiddle)
{
    const CaptionLines lines{.clock = {}, .title = QString(400, u'm'), .detail = {}};
    EXPECT_LE(captionPicture(lines, {.letters = 20, .widest = 300}).size.width, 330);
}

TEST(CaptionPicture, clock_standsBesideTheLines)
{
    const auto width = [](const CaptionLines& lines) {
        return captionPicture(lines, {.letters = 24}).size.width;
    };
    const CaptionLines clock{all.clock, {}, {}};
    const CaptionLines text{{}, all.title, all.detail};
    EXPECT_GT(width(all), width(clock) + width(text) - 24);
}

} // namespace kestro
