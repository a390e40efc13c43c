#include "platform/movie/StreamEnd.h"

#include <gtest/gtest.h>

using namespace kestro;

TEST(StreamEnd, brokeOff_whenTimeAndBytesAreMissing)
{
    EXPECT_TRUE(brokeOff(30, 60, {.read = 5e6, .length = 10e6}));
    EXPECT_TRUE(brokeOff(6840, 7200, {.read = 95e7, .length = 100e7}));
    EXPECT_TRUE(brokeOff(0.6, 2, {.read = 2328, .length = 4771}));
}

TEST(StreamEnd, hasNotBrokenOff_whenOnlyTheSoundIsLonger)
{
    EXPECT_FALSE(brokeOff(60, 70, {.read = 98e5, .length = 100e5}));
    EXPECT_FALSE(brokeOff(60, 70, {.read = 100e5, .length = 100e5}));
}

TEST(StreamEnd, hasNotBrokenOff_whenOnlyBytesAreLeft)
{
    EXPECT_FALSE(brokeOff(59.96, 60, {.read = 5e6, .length = 10e6}));
    EXPECT_FALSE(brokeOff(1.967, 2, {.read = 3724, .length = 5606}));
}

TEST(StreamEnd, hasNotBrokenOff_whenTooLittleIsKnown)
{
    EXPECT_FALSE(brokeOff(30, 0, {.read = 5e6, .length = 10e6}));
    EXPECT_FALSE(brokeOff(30, 60, {.read = 5e6, .length = 0}));
}
