#include "engine/Bounce.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <ostream>
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

namespace {

struct Shape {
    const char* name;
    Size size;
};

void PrintTo(const Shape& shape, std::ostream* out)
{
    *out << shape.name;
}

class BounceStray : public testing::TestWithParam<Shape> {
protected:
    /// How far the rectangle was from covering the area, or from lying in it, at its worst in many ticks.
    static float worstOf(bool inView, Size size)
    {
        SeededRandom random(11);
        Bounce bounce(random);
        const Rect place = inView ? Rect{{0, 0}, {800, 600}} : area;
        float worst = 0;
        for (int start = 0; start < 20; ++start) {
            bounce.assignRndValuesWithSign();
            Rect rect{place.origin, size};
            for (int tick = 0; tick < 1000; ++tick) {
                rect = inView ? bounce.newRectFromView(rect, place) : bounce.newRectFromScreen(rect, place);
                bounce.turnStray(rect, place);
                worst = std::max({worst, strayed(rect.left(), rect.right(), place.left(), place.right()),
                                  strayed(rect.bottom(), rect.top(), place.bottom(), place.top())});
            }
        }
        return worst;
    }

private:
    static float strayed(float lower, float upper, float areaLower, float areaUpper)
    {
        const bool isLarger = upper - lower > areaUpper - areaLower;
        return isLarger ? std::max(lower - areaLower, areaUpper - upper)
                        : std::max(areaLower - lower, upper - areaUpper);
    }
};

} // namespace

TEST_P(BounceStray, rectangle_neverLeavesItsArea)
{
    // What had gone 16 points beyond goes on by one step of 8 at most.
    EXPECT_LE(worstOf(false, GetParam().size), 24);
    EXPECT_LE(worstOf(true, GetParam().size), 24);
}

INSTANTIATE_TEST_SUITE_P(Shapes, BounceStray,
                         testing::Values(Shape{"small", {80, 60}}, Shape{"asLarge", {800, 600}},
                                         Shape{"asWide", {800, 300}}, Shape{"asHigh", {300, 600}},
                                         Shape{"wider", {900, 300}}, Shape{"higher", {300, 700}},
                                         Shape{"larger", {1000, 900}}),
                         [](const auto& shape) { return std::string(shape.param.name); });

TEST(Bounce, turnStray_leavesAStepAlone_whereThereIsRoom)
{
    SeededRandom random(3);
    Bounce bounce(random);
    for (const Point place : {Point{-16, 300}, Point{736, 300}, Point{300, -16}, Point{300, 556}}) {
        for (const Point step : {Point{8, 8}, Point{-8, -8}}) {
            bounce.setIncPt(step);
            bounce.turnStray({place, {80, 60}}, {{0, 0}, {800, 600}});
            EXPECT_EQ(bounce.incPt(), step);
        }
    }
    bounce.setIncPt({-4, 8});
    bounce.turnStray({{-17, 557}, {80, 60}}, {{0, 0}, {800, 600}});
    EXPECT_EQ(bounce.incPt(), (Point{4, -8}));
}

} // namespace kestro
