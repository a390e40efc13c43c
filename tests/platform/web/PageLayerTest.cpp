#include "platform/web/PageLayer.h"

#include "platform/web/SharedFrames.h"

#include <QImage>

#include <gtest/gtest.h>

namespace kestro {

namespace {

QImage rendered(PageLayer& layer, QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    const PixelTarget target{image.bits(), size.width(), size.height(),
                             static_cast<int>(image.bytesPerLine())};
    return layer.render(target) ? image : QImage();
}

class PageLayerTest : public testing::Test {
protected:
    PageLayerTest()
    {
        const auto writer = SharedFrames::adopt(frames->share(), {3, 2});
        QImage picture = writer->writable(1);
        picture.fill(Qt::red);
        picture.setPixelColor(2, 0, Qt::blue);
    }

    std::shared_ptr<SharedFrames> frames = SharedFrames::make({3, 2});
    PageLayer layer;
};

TEST_F(PageLayerTest, render_answersFalse_beforeThereIsAPicture)
{
    EXPECT_FALSE(layer.hasFrame());
    EXPECT_TRUE(rendered(layer, {4, 2}).isNull());
}

TEST_F(PageLayerTest, render_copiesThePicture_andRepeatsTheLastColumnOfAnOddOne)
{
    layer.showFrame(frames, 1);
    const QImage shown = rendered(layer, {4, 2});
    EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(2, 0), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(3, 0), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(3, 1), QColor(Qt::red));
}

TEST_F(PageLayerTest, render_stretchesThePictureOverAnotherSize)
{
    layer.showFrame(frames, 1);
    const QImage shown = rendered(layer, {12, 8});
    EXPECT_EQ(shown.pixelColor(0, 7), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(11, 0), QColor(Qt::blue));
}

TEST_F(PageLayerTest, showBlack_isAPictureOfItsOwn_andIsAnnounced)
{
    int announced = 0;
    layer.setPictureHandler([&] { ++announced; });
    layer.showBlack();
    EXPECT_TRUE(layer.hasFrame());
    EXPECT_EQ(announced, 1);
    EXPECT_EQ(rendered(layer, {4, 2}).pixelColor(1, 1), QColor(Qt::black));
}

} // namespace

} // namespace kestro
