#include "settings/DayClock.h"

#include "settings/PlayTime.h"

#include <QTimeZone>

#include <gtest/gtest.h>

namespace kestro {

static QDateTime at(int hour, int minute = 0)
{
    return {QDate(2024, 6, 21), QTime(hour, minute)};
}

static PlayTime timeOf(const char* word)
{
    return playTimeFrom(QString::fromUtf8(word)).value_or(PlayTime());
}

TEST(DayClock, day_isFromSevenToNineteen_withoutAPlace)
{
    const DayClock clock;
    for (const auto& [moment, isDay] : {std::pair(at(6, 59), false), std::pair(at(7), true),
                                        std::pair(at(18, 59), true), std::pair(at(19), false)}) {
        EXPECT_EQ(clock.isTimeFor(timeOf("day"), moment), isDay) << moment.time().hour();
        EXPECT_EQ(clock.isTimeFor(timeOf("night"), moment), !isDay) << moment.time().hour();
    }
}

TEST(DayClock, day_isWhileTheSunIsUp_whereThePlaceIsKnown)
{
    const DayClock clock(Place{52.52, 13.405});
    const QDateTime early(QDate(2024, 6, 21), QTime(3, 0), QTimeZone::utc());
    const QDateTime late(QDate(2024, 12, 21), QTime(15, 30), QTimeZone::utc());
    EXPECT_TRUE(clock.isTimeFor(timeOf("day"), early));
    EXPECT_TRUE(clock.isTimeFor(timeOf("night"), late));
    EXPECT_FALSE(clock.isTimeFor(timeOf("day"), late));
}

TEST(DayClock, hours_areThoseOfThePersonsClock)
{
    const DayClock clock;
    EXPECT_TRUE(clock.isTimeFor(timeOf("22-6"), at(23)));
    EXPECT_FALSE(clock.isTimeFor(timeOf("22-6"), at(6)));
    EXPECT_TRUE(clock.isTimeFor(PlayTime(), at(6)));
}

} // namespace kestro
