#include "engine/RetrySchedule.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(RetrySchedule, isNeverDue_beforeAFailure)
{
    const RetrySchedule retries;
    EXPECT_FALSE(retries.isDue(1e9));
}

TEST(RetrySchedule, isDueASecondLater_forAMinute_andThenAfterHalfAMinute)
{
    RetrySchedule retries;
    double now = 100;
    for (; now < 160; now += 1) {
        retries.failed(now, 1);
        EXPECT_FALSE(retries.isDue(now + 0.99));
        EXPECT_TRUE(retries.isDue(now + 1));
    }
    for (int turn = 0; turn < 100; ++turn, now += 30) {
        retries.failed(now, 1);
        EXPECT_FALSE(retries.isDue(now + 29.9));
        EXPECT_TRUE(retries.isDue(now + 30));
    }
}

TEST(RetrySchedule, restsLonger_afterALongList_butNeverLongerThanHalfAMinute)
{
    RetrySchedule retries;
    retries.failed(100, 2000);
    EXPECT_FALSE(retries.isDue(109.9));
    EXPECT_TRUE(retries.isDue(110));
    retries.failed(200, 1000000);
    EXPECT_FALSE(retries.isDue(229.9));
    EXPECT_TRUE(retries.isDue(230));
}

TEST(RetrySchedule, startsAnew_afterItsEnd)
{
    RetrySchedule retries;
    retries.failed(0, 1);
    retries.failed(100, 1);
    retries.end();
    EXPECT_FALSE(retries.isDue(1000));
    retries.failed(1000, 1);
    EXPECT_TRUE(retries.isDue(1001));
}

} // namespace kestro
