#include "platform/base/Clock.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(ManualClock, now_standsStill_untilTurned)
{
    ManualClock clock;
    EXPECT_EQ(clock.now(), 0.0);
    clock.advance(1.5);
    EXPECT_EQ(clock.now(), 1.5);
    clock.advance(0.25);
    EXPECT_EQ(clock.now(), 1.75);
}

TEST(ManualClock, today_isTheDaySet)
{
    ManualClock clock;
    clock.setToday(QDate(2009, 2, 7));
    EXPECT_EQ(clock.today(), QDate(2009, 2, 7));
}

TEST(ManualClock, wallTime_goesOnWithTheClock_fromTheTimeSet)
{
    ManualClock clock;
    clock.setWallTime(QDateTime(QDate(2009, 2, 7), QTime(23, 59)));
    clock.advance(90.5);
    EXPECT_EQ(clock.wallTime(), QDateTime(QDate(2009, 2, 8), QTime(0, 0, 30, 500)));
    EXPECT_EQ(clock.today(), QDate(2009, 2, 8));
}

TEST(SystemClock, wallTime_isTheMachines)
{
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime time = SystemClock().wallTime();
    EXPECT_GE(time, before);
    EXPECT_LE(time, QDateTime::currentDateTime());
}

TEST(SystemClock, today_isTheMachines)
{
    const QDate before = QDate::currentDate();
    const QDate today = SystemClock().today();
    EXPECT_GE(today, before);
    EXPECT_LE(today, QDate::currentDate());
}

TEST(SystemClock, now_neverGoesBack_whenReadAgain)
{
    const SystemClock clock;
    double before = clock.now();
    EXPECT_GE(before, 0.0);
    for (int reading = 0; reading < 1000; ++reading) {
        const double after = clock.now();
        EXPECT_GE(after, before);
        before = after;
    }
}

TEST(SystemClock, now_passes_whenWaitedFor)
{
    const SystemClock clock;
    const double start = clock.now();
    int readings = 0;
    while (clock.now() == start && ++readings < 100'000'000) {
    }
    EXPECT_GT(clock.now(), start);
}

TEST(SystemClock, now_hasOneOrigin_whenAskedThroughTwoClocks)
{
    const SystemClock first;
    const SystemClock second;
    const double before = first.now();
    EXPECT_GE(second.now(), before);
    EXPECT_LT(second.now() - before, 60.0);
}

} // namespace kestro
