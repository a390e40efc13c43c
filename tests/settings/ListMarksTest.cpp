#include "settings/ListMarks.h"

#include "settings/DayClock.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

const EntryMark byDay{false, {.kind = PlayTime::Kind::Day}};
const EntryMark byNight{false, {.kind = PlayTime::Kind::Night}};

DayClock at(int hour)
{
    return DayClock({}, [hour] { return QDateTime(QDate(2024, 6, 21), QTime(hour, 0)); });
}

ListMarks listOf(const std::vector<EntryMark>& marks)
{
    ListMarks list;
    for (const EntryMark& mark : marks)
        list.append(mark);
    return list;
}

} // namespace

TEST(ListMarks, movie_hasWhatWasSaidOfItsEntry)
{
    const auto list = listOf({{}, {}, byDay, byNight, byNight, {true, {}}});
    EXPECT_EQ(list.at(0), EntryMark());
    EXPECT_EQ(list.at(2), byDay);
    EXPECT_EQ(list.at(4), byNight);
    EXPECT_TRUE(list.isStarred(5));
    EXPECT_EQ(list.at(6), EntryMark());
}

TEST(ListMarks, moviesInTime_areThoseWhoseTimeItIs)
{
    const auto list = listOf({byDay, byNight, {}, byNight});
    const MoviesInTime atNoon(list, at(12));
    const MoviesInTime atMidnight(list, at(0));
    EXPECT_FALSE(atNoon.areAll());
    const std::vector<bool> noon{atNoon.has(0), atNoon.has(1), atNoon.has(2), atNoon.has(3)};
    const std::vector<bool> midnight{atMidnight.has(0), atMidnight.has(1), atMidnight.has(2),
                                     atMidnight.has(3)};
    EXPECT_EQ(noon, (std::vector<bool>{true, false, true, false}));
    EXPECT_EQ(midnight, (std::vector<bool>{false, true, true, true}));
    EXPECT_FALSE(atNoon == atMidnight);
    EXPECT_EQ(atNoon, MoviesInTime(list, at(13)));
}

TEST(ListMarks, moviesInTime_areAll_whereNoneIs)
{
    const MoviesInTime atMidnight(listOf({byDay, byDay}), at(0));
    EXPECT_TRUE(atMidnight.areAll());
    EXPECT_TRUE(atMidnight.has(1));
}

TEST(ListMarks, moviesInTime_areAll_whereNobodySaidWhen)
{
    EXPECT_TRUE(MoviesInTime(listOf({{}, {true, {}}}), at(0)).areAll());
    EXPECT_TRUE(MoviesInTime(ListMarks(), at(0)).areAll());
}

} // namespace kestro
