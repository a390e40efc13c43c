#include "platform/movie/MovieTime.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace kestro;

TEST(MovieTime, isRoundedUp_whenBetweenUnits)
{
    EXPECT_EQ(movieTimeFromSeconds(1.0 / 600 + 0.0001), (MovieTime{2, 600}));
    EXPECT_EQ(movieTimeFromSeconds(2.001), (MovieTime{1201, 600}));
}

TEST(MovieTime, isWhole_whenSecondsAreWholeUnits)
{
    EXPECT_EQ(movieTimeFromSeconds(2), (MovieTime{1200, 600}));
    for (int units = 0; units < 5000; ++units)
        EXPECT_EQ(movieTimeFromSeconds(units / 600.0).timeValue, units);
}

TEST(MovieTime, isZero_whenSpanIsNone)
{
    EXPECT_EQ(movieTimeFromSeconds(-3).timeValue, 0);
    EXPECT_EQ(movieTimeFromSeconds(std::nan("")).timeValue, 0);
    EXPECT_EQ(movieTimeFromSeconds(std::numeric_limits<double>::infinity()).timeValue, 0);
}

TEST(MovieTime, givesSeconds_inItsOwnScale)
{
    EXPECT_DOUBLE_EQ(secondsFromMovieTime({900, 600}), 1.5);
    EXPECT_DOUBLE_EQ(secondsFromMovieTime({25, 10}), 2.5);
    EXPECT_DOUBLE_EQ(secondsFromMovieTime({25, 0}), 0);
}
