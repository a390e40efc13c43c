#include "platform/web/helper/FrameWriter.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

class FrameWriterTest : public testing::Test {
protected:
    FrameWriterTest() { writer.setFrames(SharedFrames::adopt(shown->share(), size)); }

    QImage picture(QRgb colour, const QRect& part = {0, 0, 8, 6})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::black);
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                image.setPixel(x, y, colour);
        return image;
    }

    /// What the saver sees in a slot.
    QImage slot(int index) const
    {
        return QImage(shown->pixels(index), size.width(), size.height(), shown->bytesPerLine(),
                      QImage::Format_RGB32)
            .copy();
    }

    const QSize size{8, 6};
    std::unique_ptr<SharedFrames> shown = SharedFrames::make(size);
    FrameWriter writer;
    const QRgb red = qRgb(255, 0, 0);
};

TEST_F(FrameWriterTest, write_tellsTheSmallestBoxAroundWhatIsNew)
{
    ASSERT_TRUE(writer.write(picture(red, {})));
    const struct {
        QRect part;
    } cases[] = {{{3, 2, 2, 3}}, {{0, 0, 1, 1}}, {{7, 5, 1, 1}}, {{0, 3, 8, 1}}, {{4, 0, 1, 6}}};
    for (const auto& each : cases) {
        FrameWriter fresh;
        fresh.setFrames(SharedFrames::adopt(shown->share(), size));
        ASSERT_TRUE(fresh.write(picture(red, {})));
        const auto written = fresh.write(picture(red, each.part));
        ASSERT_TRUE(written);
        EXPECT_EQ(written->damage, each.part);
    }
}

TEST_F(FrameWriterTest, write_writesNothing_whereNothingIsNew)
{
    ASSERT_TRUE(writer.write(picture(red)));
    EXPECT_FALSE(writer.write(picture(red)));
}

TEST_F(FrameWriterTest, write_neverTouchesASlotThatIsShown)
{
    const auto first = writer.write(picture(red));
    const auto second = writer.write(picture(red, {0, 0, 4, 4}));
    ASSERT_TRUE(first && second);
    EXPECT_NE(first->slot, second->slot);
    EXPECT_FALSE(writer.hasRoom());
    EXPECT_FALSE(writer.write(picture(red, {1, 1, 1, 1})));
    EXPECT_EQ(slot(first->slot), picture(red));
}

TEST_F(FrameWriterTest, write_bringsASlotUpToDateOverSeveralPictures)
{
    const auto first = writer.write(picture(red, {0, 0, 1, 1}));
    ASSERT_TRUE(first && writer.write(picture(red, {7, 5, 1, 1})));
    writer.release(first->slot);
    const auto third = writer.write(picture(red, {2, 2, 1, 1}));
    ASSERT_TRUE(third);
    EXPECT_EQ(third->slot, first->slot);
    EXPECT_EQ(slot(third->slot), picture(red, {2, 2, 1, 1}));
}

TEST_F(FrameWriterTest, write_refusesAPictureOfAnotherSize)
{
    EXPECT_FALSE(writer.write(QImage(4, 4, QImage::Format_RGB32)));
}

TEST_F(FrameWriterTest, release_ofNoSlot_isIgnored)
{
    writer.release(-1);
    writer.release(SharedFrames::slotCount);
    EXPECT_TRUE(writer.hasRoom());
}

} // namespace

} // namespace kestro
