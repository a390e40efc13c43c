#include "engine/Bounce.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace kestro {

namespace {

constexpr Rect area{{100, 50}, {800, 600}};
constexpr Size box{100, 80};

struct Turn {
    const char* name;
    Point place; ///< of the box, relative to the area's origin
    Point step;  ///< before
    int signX;   ///< of the step after, when the edge turned it
    int signY;
};

class BounceAtEdge : public testing::TestWithParam<Turn> {};

bool isNewSpeed(float step)
{
    const float size = std::abs(step);
    return size >= 4 && size <= 8 && size == std::floor(size);
}

} // namespace

TEST_P(BounceAtEdge, newRectFromScreen_turnsAwayAndKeepsTheOtherDirection)
{
    SeededRandom random(3);
    Bounce bounce(random);
    const auto& turn = GetParam();
    for (int round = 0; round < 50; ++round) {
        bounce.setIncPt(turn.step);
        const Rect at{{area.origin.x + turn.place.x, area.origin.y + turn.place.y}, box};
        const Rect next = bounce.newRectFromScreen(at, area);
        EXPECT_EQ(std::copysign(1, bounce.incPt().x), turn.signX);
        EXPECT_EQ(std::copysign(1, bounce.incPt().y), turn.signY);
        EXPECT_TRUE(isNewSpeed(bounce.incPt().x) && isNewSpeed(bounce.incPt().y));
        EXPECT_EQ(next, at.movedBy(bounce.incPt()));
    }
}

// The step before, 30, is no speed that a turn gives, so every turn shows.
INSTANTIATE_TEST_SUITE_P(Edges, BounceAtEdge,
                         testing::Values(Turn{"left going down", {0, 200}, {-30, -30}, 1, -1},
                                         Turn{"left going up", {-3, 200}, {-30, 30}, 1, 1},
                                         Turn{"bottom going left", {200, 0}, {-30, -30}, -1, 1},
                                         Turn{"bottom going right", {200, -5}, {30, -30}, 1, 1},
                                         Turn{"right going down", {700, 200}, {30, -30}, -1, -1},
                                         Turn{"right going up", {705, 200}, {30, 30}, -1, 1},
                                         Turn{"top going left", {200, 520}, {-30, 30}, -1, -1},
                                         Turn{"top going right", {200, 530}, {30, 30}, 1, -1},
                                         Turn{"corner left and bottom", {0, 0}, {-30, -30}, 1, -1},
                                         Turn{"corner bottom and right", {700, 0}, {30, -30}, 1, 1},
                                         Turn{"corner right and top", {700, 520}, {30, 30}, -1, 1}),
                         [](const auto& test) {
                             QString name = test.param.name;
                             return name.replace(u' ', u'_').toStdString();
                         });

TEST(Bounce, newRectFromScreen_keepsTheStep_awayFromEveryEdge)
{
    SeededRandom random(1);
    Bounce bounce(random);
    bounce.setIncPt({5, -7});
    const Rect next = bounce.newRectFromScreen({{400, 300}, box}, area);
    EXPECT_EQ(bounce.incPt(), (Point{5, -7}));
    EXPECT_EQ(next, (Rect{{405, 293}, box}));
}

TEST(Bounce, newRectFromView_turnsAtTheViewsOwnEdges)
{
    SeededRandom random(1);
    Bounce bounce(random);
    bounce.setIncPt({-30, -30});
    EXPECT_GT(bounce.newRectFromView({{0, 200}, box}, {{0, 0}, {800, 600}}).origin.x, 0);
    EXPECT_LT(bounce.incPt().y, 0);
    bounce.setIncPt({30, 30});
    EXPECT_LT(bounce.newRectFromView({{300, 520}, box}, {{0, 0}, {800, 600}}).origin.y, 520);
    EXPECT_GT(bounce.incPt().x, 0);
}

TEST(Bounce, assignRndValues_givesWholePositiveNumbersFromFourToEight)
{
    SeededRandom random(9);
    Bounce bounce(random);
    std::set<float> seen;
    for (int i = 0; i < 300; ++i) {
        bounce.assignRndValues();
        seen.insert({bounce.incPt().x, bounce.incPt().y});
    }
    EXPECT_EQ(seen, (std::set<float>{4, 5, 6, 7, 8}));
}

TEST(Bounce, assignRndValuesWithSign_givesAllFourDirections)
{
    SeededRandom random(9);
    Bounce bounce(random);
    std::set<std::pair<bool, bool>> seen;
    for (int i = 0; i < 100; ++i) {
        bounce.assignRndValuesWithSign();
        EXPECT_TRUE(isNewSpeed(bounce.incPt().x) && isNewSpeed(bounce.incPt().y));
        seen.insert({bounce.incPt().x < 0, bounce.incPt().y < 0});
    }
    EXPECT_EQ(seen.size(), 4U);
}

// A scripted sequence shows the order in which chance is asked: the quadrant first, then x and y.
TEST(Bounce, assignRndValuesWithSign_drawsTheQuadrantFirst)
{
    class Script final : public Random {
    public:
        std::int32_t next() override { return values[at++]; }
        std::int32_t values[3] = {0x26666666, 0, 0x7eb851eb}; // 0.3, 0 and 0.99 of the whole range
        int at = 0;
    } script;
    Bounce bounce(script);
    bounce.assignRndValuesWithSign();
    EXPECT_EQ(bounce.incPt(), (Point{-4, 8}));
}

} // namespace kestro
