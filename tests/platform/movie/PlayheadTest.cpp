#include "platform/movie/Playhead.h"

#include <gtest/gtest.h>
#include <ostream>

using namespace kestro;

struct PlayheadCase {
    const char* name;
    Playhead start;
    double elapsed;
    EndMode mode;
    Playhead wanted;
};

static void PrintTo(const PlayheadCase& of, std::ostream* out)
{
    *out << of.name;
}

class PlayheadAfter : public testing::TestWithParam<PlayheadCase> {};

TEST_P(PlayheadAfter, isWhereItBelongs)
{
    const PlayheadCase& c = GetParam();
    const Playhead got = c.start.after(c.elapsed, 10, c.mode);
    EXPECT_DOUBLE_EQ(got.position, c.wanted.position);
    EXPECT_EQ(got.backwards, c.wanted.backwards);
    EXPECT_EQ(got.running, c.wanted.running);
    EXPECT_EQ(got.atEnd, c.wanted.atEnd);
}

static const PlayheadCase playheadCases[] = {
    {"stands", {4, false, false, false}, 3, EndMode::Loop, {4, false, false, false}},
    {"runs", {4, false, true, false}, 3, EndMode::Stop, {7, false, true, false}},
    {"ends", {4, false, true, false}, 9, EndMode::Stop, {10, false, false, true}},
    {"endsAtBeginning", {4, true, true, false}, 5, EndMode::Stop, {0, false, false, true}},
    {"loops", {4, false, true, false}, 9, EndMode::Loop, {3, false, true, false}},
    {"loopsForwardFromBackwards", {4, true, true, false}, 5, EndMode::Loop, {1, false, true, false}},
    {"turns", {4, false, true, false}, 9, EndMode::Turn, {7, true, true, false}},
    {"turnsTwice", {4, false, true, false}, 18, EndMode::Turn, {2, false, true, false}},
    {"runsBackwards", {4, true, true, false}, 3, EndMode::Turn, {1, true, true, false}},
};
INSTANTIATE_TEST_SUITE_P(Modes, PlayheadAfter, testing::ValuesIn(playheadCases),
                         [](const auto& of) { return std::string(of.param.name); });

TEST(Playhead, ends_whenMovieIsEmpty)
{
    const Playhead running{0, false, true, false};
    EXPECT_TRUE(running.after(1, 0, EndMode::Stop).atEnd);
    EXPECT_EQ(running.after(1, 0, EndMode::Loop).position, 0);
    EXPECT_EQ(running.after(1, 0, EndMode::Turn).position, 0);
}
