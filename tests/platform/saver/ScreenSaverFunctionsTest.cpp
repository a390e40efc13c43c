#include "platform/saver/ScreenSaverFunctions.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>

namespace kestro {

namespace {

/// Draws the one number it was made with.
class FixedRandom final : public Random {
public:
    explicit FixedRandom(std::int32_t number)
        : m_number(number)
    {
    }
    [[nodiscard]] std::int32_t next() override
    {
        ++drawn;
        return m_number;
    }

    int drawn = 0;

private:
    std::int32_t m_number;
};

constexpr std::int32_t half = 1 << 30;
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

int between(std::int32_t drawn, int a, int b)
{
    FixedRandom random(drawn);
    return SSRandomIntBetween(random, a, b);
}

std::set<int> reached(int a, int b)
{
    SeededRandom random(3);
    std::set<int> found;
    for (int draw = 0; draw < 2000; ++draw)
        found.insert(SSRandomIntBetween(random, a, b));
    return found;
}

} // namespace

TEST(SSRandomIntBetween, answer_isTheWholePartOfTheShare)
{
    EXPECT_EQ(between(0, 4, 8), 4);
    EXPECT_EQ(between(half, 4, 8), 6) << "half of 5 is 2.5";
    EXPECT_EQ(between(half - 200'000'000, 4, 8), 6);
    EXPECT_EQ(between(half - 300'000'000, 4, 8), 5);
    EXPECT_EQ(between(half, 0, 9), 5);
    EXPECT_EQ(between(most / 10 * 9 - 10'000'000, 0, 99), 89);
}

// In single precision the largest numbers drawn round up to the whole range.
TEST(SSRandomIntBetween, answer_isTheFirst_whereTheShareRoundsToAll)
{
    EXPECT_EQ(between(most, 4, 8), 4);
    EXPECT_EQ(between(most - 63, 4, 8), 4);
    EXPECT_EQ(between(most - 200, 4, 8), 8);
    EXPECT_EQ(between(most, 0, -3), 0);
}

TEST(SSRandomIntBetween, answer_reachesBothEnds_andNothingBeyond)
{
    EXPECT_EQ(reached(4, 8), (std::set{4, 5, 6, 7, 8}));
    EXPECT_EQ(reached(0, 3), (std::set{0, 1, 2, 3}));
    EXPECT_EQ(reached(0, 0), (std::set{0}));
    EXPECT_EQ(reached(-2, 1), (std::set{-2, -1, 0, 1}));
    EXPECT_EQ(reached(0, -3), (std::set{-3, -2, -1, 0}));
    EXPECT_EQ(reached(5, 4), (std::set{4, 5}));
}

TEST(SSRandomIntBetween, answer_isInRange_whenTheRangeIsWiderThanAnInteger)
{
    const int least = std::numeric_limits<int>::min();
    for (const std::int32_t drawn : {0, half, most - 200, most}) {
        EXPECT_LE(between(drawn, 0, most), most);
        EXPECT_GE(between(drawn, 0, most), 0);
        EXPECT_GE(between(drawn, least, most), least);
        EXPECT_LE(between(drawn, 0, least), 0);
    }
    EXPECT_EQ(between(half, least, most), 0);
    EXPECT_EQ(between(most, least, most), least);
}

TEST(SSRandomIntBetween, answer_takesOneDraw)
{
    FixedRandom random(half);
    EXPECT_EQ(SSRandomIntBetween(random, 0, 0), 0);
    EXPECT_EQ(random.drawn, 1);
}

TEST(SSCenteredRectInRect, origin_isHalfTheSpareRoom_roundedDown)
{
    const Rect inner{{7, 9}, {100, 51}};
    EXPECT_EQ(SSCenteredRectInRect(inner, {{0, 0}, {200, 100}}), (Rect{{50, 24}, {100, 51}}));
    EXPECT_EQ(SSCenteredRectInRect(inner, {{30, 40}, {201, 102}}), (Rect{{50, 25}, {100, 51}}));
}

TEST(SSCenteredRectInRect, origin_isRoundedDown_whenTheInnerIsLarger)
{
    EXPECT_EQ(SSCenteredRectInRect({{0, 0}, {101, 13}}, {{0, 0}, {100, 10}}), (Rect{{-1, -2}, {101, 13}}));
}

} // namespace kestro
