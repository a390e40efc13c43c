#include "trailers/panel/MovieFit.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

struct FitCase {
    std::string name;
    Size container;
    Size natural;
    Rect frame;

    friend void PrintTo(const FitCase& one, std::ostream* out) { *out << one.name; }
};

// Heights of movies are 16 less than the round numbers that the bar makes of them.
const std::vector<FitCase> fitCases{
    {"exactly", {640, 376}, {640, 360}, {{0, 0}, {640, 376}}},
    {"wideContainerIsFilledInHeight", {1000, 200}, {200, 84}, {{300, 0}, {400, 200}}},
    {"tallContainerIsFilledInWidth", {200, 1000}, {100, 84}, {{0, 400}, {200, 200}}},
    {"smallContainerShrinksIt", {100, 100}, {400, 184}, {{0, 25}, {100, 50}}},
    {"noWidthTakesTheContainers", {320, 100}, {0, 184}, {{80, 0}, {160, 100}}},
    {"nothingKnownIsTheBarAlone", {320, 100}, {0, 0}, {{0, 42}, {320, 16}}},
    {"noHeightAtAll", {320, 100}, {320, -16}, {{0, 50}, {320, 0}}},
    {"noRoom", {0, 100}, {320, 184}, {{0, 0}, {0, 0}}},
};

class MovieFitTest : public testing::TestWithParam<FitCase> {};

} // namespace

TEST_P(MovieFitTest, fittedMovieFrame_followsTheRule)
{
    const Rect frame = fittedMovieFrame(GetParam().container, GetParam().natural);
    EXPECT_FLOAT_EQ(frame.origin.x, GetParam().frame.origin.x);
    EXPECT_FLOAT_EQ(frame.origin.y, GetParam().frame.origin.y);
    EXPECT_FLOAT_EQ(frame.size.width, GetParam().frame.size.width);
    EXPECT_FLOAT_EQ(frame.size.height, GetParam().frame.size.height);
}

INSTANTIATE_TEST_SUITE_P(Rule, MovieFitTest, testing::ValuesIn(fitCases),
                         [](const auto& test) { return test.param.name; });

TEST(NaturalContainerSizeTest, naturalContainerSize_hasRoomForTheBar)
{
    EXPECT_EQ(naturalContainerSize({480, 204}), (Size{480, 220}));
    EXPECT_EQ(controllerBarHeight, 16);
}

} // namespace kestro
