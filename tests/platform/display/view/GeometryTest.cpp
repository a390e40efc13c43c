#include "platform/display/view/Geometry.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(Geometry, unionRect_goesAroundBoth_andEmptyOnesCountForNothing)
{
    EXPECT_EQ(unionRect({{0, 0}, {10, 10}}, {{20, -5}, {5, 5}}), (Rect{{0, -5}, {25, 15}}));
    EXPECT_EQ(unionRect({{100, 100}, {0, 10}}, {{20, -5}, {5, 5}}), (Rect{{20, -5}, {5, 5}}));
    EXPECT_EQ(unionRect({{20, -5}, {5, 5}}, {{100, 100}, {10, -1}}), (Rect{{20, -5}, {5, 5}}));
    EXPECT_EQ(unionRect({{20, -5}, {0, 5}}, {{100, 100}, {10, -1}}), Rect{});
}

TEST(Geometry, intersectionRect_isWhatBothCover)
{
    EXPECT_EQ(intersectionRect({{0, 0}, {10, 10}}, {{5, -5}, {50, 10}}), (Rect{{5, 0}, {5, 5}}));
    EXPECT_EQ(intersectionRect({{3, 3}, {10, 10}}, {{13, 3}, {10, 10}}), Rect{});
    EXPECT_EQ(intersectionRect({{3, 3}, {10, 10}}, {{50, 50}, {10, 10}}), Rect{});
}

TEST(Geometry, stringFromPoint_writesPlainNumbers)
{
    EXPECT_EQ(stringFromPoint({12, -3.5F}), QStringLiteral("{12, -3.5}"));
    EXPECT_EQ(stringFromPoint({0.1F, 100000}), QStringLiteral("{0.1, 100000}"));
}

TEST(Geometry, pointFromString_readsWhatStringFromPointWrites)
{
    for (const Point point : {Point{12, -3.5F}, Point{0.1F, 1e20F}, Point{-1e-7F, 1920}, Point{}})
        EXPECT_EQ(pointFromString(stringFromPoint(point)), point);
    EXPECT_EQ(pointFromString(QStringLiteral(" { 4 ,5e1 } ")), (Point{4, 50}));
}

TEST(Geometry, pointFromString_answersZero_whenTextIsNoPoint)
{
    for (const char* text : {"", "{1}", "{1, 2", "{a, b}", "{1, 2} 3", "{1.2.3, 4}", "{nan, 1}", "{1, 2, 3}"})
        EXPECT_EQ(pointFromString(QString::fromLatin1(text)), Point{}) << text;
}

} // namespace kestro
