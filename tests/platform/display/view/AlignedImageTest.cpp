#include "platform/display/view/AlignedImage.h"

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>

using namespace kestro;

static bool isAligned(const uchar* row)
{
    return reinterpret_cast<std::uintptr_t>(row) % pixelAlignment == 0;
}

TEST(AlignedImage, rows_areAligned_whateverTheWidth)
{
    for (const int width : {1, 15, 16, 17, 321}) {
        const QImage image = alignedImage({width, 3}, QImage::Format_RGB32);
        ASSERT_EQ(image.size(), QSize(width, 3));
        for (int y = 0; y < 3; ++y)
            EXPECT_TRUE(isAligned(image.constScanLine(y))) << width << ' ' << y;
    }
}

TEST(AlignedImage, pixels_areZero)
{
    const QImage image = alignedImage({5, 2}, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(image.pixel(x, y), 0U);
}

// With an address sanitizer this finds rows that are not there.
TEST(AlignedImage, guardRows_canBeWritten)
{
    QImage image = alignedImage({16, 2}, QImage::Format_RGB32, 3);
    const auto stride = static_cast<std::size_t>(image.bytesPerLine());
    std::memset(image.bits(), 0x7f, 5 * stride);
    EXPECT_EQ(image.pixel(15, 1), 0xff7f7f7fU);
}

TEST(AlignedImage, isNull_whenNobodyCouldWantIt)
{
    EXPECT_TRUE(alignedImage({0, 5}, QImage::Format_RGB32).isNull());
    EXPECT_TRUE(alignedImage({100000, 100000}, QImage::Format_RGB32).isNull());
    EXPECT_TRUE(alignedImage({16, 1}, QImage::Format_RGB32, 1 << 24).isNull());
}
