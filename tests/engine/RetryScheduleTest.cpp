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
        retries.failed(now);
        EXPECT_FALSE(retries.isDue(now + 0.99));
        EXPECT_TRUE(retries.isDue(now + 1));
    }
    for (int turn = 0; turn < 100; ++turn, now += 30) {
        retries.failed(now);
        EXPECT_FALSE(retries.isDue(now + 29.9));
        EXPECT_TRUE(retries.isDue(now + 30));
    }
}

TEST(RetrySchedule, startsAnew_afterItsEnd)
{
    RetrySchedule retries;
    retries.failed(0);
    retries.failed(100);
    retries.end();
    EXPECT_FALSE(retries.isDue(1000));
    retries.failed(1000);
    EXPECT_TRUE(retries.isDue(1001));
}

} // namespace kestro
