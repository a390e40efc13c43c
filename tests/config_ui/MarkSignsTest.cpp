#include "config_ui/MarkSigns.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr int side = 24;

QImage drawn(const EntryMark& mark)
{
    QImage picture(3 * side, side, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    paintMarkSigns(painter, mark, picture.rect(), Qt::black);
    return picture;
}

bool isBlank(const QImage& picture, int fromX)
{
    QImage white(picture.width() - fromX, side, QImage::Format_RGB32);
    white.fill(Qt::white);
    return picture.copy(fromX, 0, white.width(), side) == white;
}

} // namespace

TEST(MarkSigns, nothing_isDrawn_whereNothingWasSaid)
{
    EXPECT_EQ(widthOfMarkSigns({}, side), 0);
    EXPECT_TRUE(isBlank(drawn({}), 0));
}

TEST(MarkSigns, signs_areEachOfItsOwnShape_withinTheirWidth)
{
    QList<QImage> seen;
    for (const EntryMark& mark :
         {EntryMark{true, {}}, EntryMark{false, {PlayTime::Kind::Day}},
          EntryMark{false, {PlayTime::Kind::Night}}, EntryMark{false, {PlayTime::Kind::Hours, 60, 120}}}) {
        const QImage picture = drawn(mark);
        EXPECT_FALSE(isBlank(picture, 0));
        EXPECT_TRUE(isBlank(picture, widthOfMarkSigns(mark, side)));
        EXPECT_FALSE(seen.contains(picture));
        seen.append(picture);
    }
}

TEST(MarkSigns, star_standsBesideTheTime)
{
    const EntryMark both{true, {PlayTime::Kind::Night}};
    EXPECT_GT(widthOfMarkSigns(both, side), 2 * side);
    EXPECT_FALSE(isBlank(drawn(both), side + 1));
    EXPECT_EQ(drawn(both).copy(0, 0, side, side), drawn({true, {}}).copy(0, 0, side, side));
}

} // namespace kestro
