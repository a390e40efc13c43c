#include "platform/movie/KeyframeDistance.h"

#include "platform/movie/MovieTest.h"

#include <gtest/gtest.h>

using namespace kestro;

static int distance(const char* name)
{
    return keyframeDistance(testMovie(name).toLocalFile());
}

TEST(KeyframeDistance, isReadFromTheIndex)
{
    EXPECT_EQ(distance("plain.mp4"), 15);
    EXPECT_EQ(distance("longgop.mp4"), 120);
}

TEST(KeyframeDistance, isCounted_whereTheIndexListsKeyframesAlone)
{
    EXPECT_EQ(distance("plain.mkv"), 15);
    EXPECT_EQ(distance("plain.webm"), 15);
}

TEST(KeyframeDistance, isZero_whenFileIsNoMovie)
{
    EXPECT_EQ(distance("text.mov"), 0);
    EXPECT_EQ(distance("none.mov"), 0);
}
