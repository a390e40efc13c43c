#include "platform/display/view/PixelRect.h"

#include <gtest/gtest.h>
#include <limits>

using namespace kestro;

TEST(PixelEdge, isTheNearestOne)
{
    EXPECT_EQ(pixelEdge(2.4), 2);
    EXPECT_EQ(pixelEdge(2.5), 3);
    EXPECT_EQ(pixelEdge(-2.4), -2);
}

TEST(PixelEdge, isBounded_whenItLiesFarAway)
{
    EXPECT_EQ(pixelEdge(1e300), 1 << 20);
    EXPECT_EQ(pixelEdge(-std::numeric_limits<double>::infinity()), -(1 << 20));
    EXPECT_EQ(pixelEdge(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(PixelRectOf, neighbours_shareTheirEdge_whereverItLies)
{
    for (const double edge : {10.0, 10.3, 10.5, 10.9}) {
        const QRect left = pixelRectOf({0, 0, edge, 4});
        const QRect right = pixelRectOf({edge, 0, 7.7, 4});
        EXPECT_EQ(left.right() + 1, right.left()) << edge;
    }
}
