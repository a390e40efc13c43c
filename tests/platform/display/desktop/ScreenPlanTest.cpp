#include "platform/display/desktop/ScreenPlan.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

using Kind = MonitorChoice::Kind;
using Part = ScreenPlan::Part;

ScreenPlan::Monitor monitor(const QString& name, const Rect& frame, double ratio = 1)
{
    const QSize pixels(qRound(frame.size.width * ratio), qRound(frame.size.height * ratio));
    return {name, frame, pixels, ratio};
}

const QString left = QStringLiteral("LEFT");
const QString right = QStringLiteral("RIGHT");

/// A wide one, and a smaller one to the right of it, with its upper edges level and a gap of 10 between.
const std::vector<ScreenPlan::Monitor> desk{monitor(left, {{0, 0}, {400, 300}}),
                                            monitor(right, {{410, 100}, {200, 200}})};

ScreenPlan planOf(ScreensMode mode, const MonitorChoice& monitors = {})
{
    return ScreenPlan::of({mode, monitors}, desk);
}

} // namespace

TEST(ScreenPlan, each_isAPictureForEveryMonitor)
{
    const ScreenPlan plan = planOf(ScreensMode::Each);
    const std::vector<ScreenPlan::Picture> expected{
        {{{0, 0}, {400, 300}}, {400, 300}, 1, {{0, {0, 0, 400, 300}}}},
        {{{410, 100}, {200, 200}}, {200, 200}, 1, {{1, {0, 0, 200, 200}}}}};
    EXPECT_EQ(plan.pictures, expected);
}

TEST(ScreenPlan, mirror_isThePictureOfTheFirst_fittedIntoTheOthers)
{
    const ScreenPlan plan = planOf(ScreensMode::Mirror);
    const std::vector<ScreenPlan::Picture> expected{
        {{{0, 0}, {400, 300}}, {400, 300}, 1, {{0, {0, 0, 400, 300}}, {1, {0, 25, 200, 150}}}}};
    EXPECT_EQ(plan.pictures, expected);
}

TEST(ScreenPlan, mirror_hasBarsAtTheSides_onAMonitorThatIsWider)
{
    const auto plan = ScreenPlan::of({ScreensMode::Mirror, {}}, {monitor(left, {{0, 0}, {100, 100}}),
                                                                 monitor(right, {{100, 0}, {300, 200}})});
    EXPECT_EQ(plan.pictures.front().parts.back(), (Part{1, {50, 0, 200, 200}}));
}

TEST(ScreenPlan, span_isOnePictureAroundThemAll_ofWhichEachShowsItsPart)
{
    const ScreenPlan plan = planOf(ScreensMode::Span);
    const std::vector<ScreenPlan::Picture> expected{
        {{{0, 0}, {610, 300}}, {610, 300}, 1, {{0, {0, 0, 610, 300}}, {1, {-410, 0, 610, 300}}}}};
    EXPECT_EQ(plan.pictures, expected);
}

TEST(ScreenPlan, span_reachesToMonitorsLeftOfAndBelowTheFirst)
{
    const auto plan = ScreenPlan::of({ScreensMode::Span, {}}, {monitor(left, {{0, 0}, {100, 100}}),
                                                               monitor(right, {{-50, -200}, {50, 100}})});
    const std::vector<ScreenPlan::Picture> expected{
        {{{-50, -200}, {150, 300}}, {150, 300}, 1, {{0, {-50, 0, 150, 300}}, {1, {0, -200, 150, 300}}}}};
    EXPECT_EQ(plan.pictures, expected);
}

TEST(ScreenPlan, span_isAsFineAsTheFinestMonitor)
{
    const auto plan = ScreenPlan::of({ScreensMode::Span, {}}, {monitor(left, {{0, 0}, {100, 100}}),
                                                               monitor(right, {{100, 0}, {100, 100}}, 2)});
    const ScreenPlan::Picture& picture = plan.pictures.front();
    EXPECT_EQ(picture.ratio, 2);
    EXPECT_EQ(picture.pixels, QSize(400, 200));
    EXPECT_EQ(picture.parts[0], (Part{0, {0, 0, 200, 100}}));
    EXPECT_EQ(picture.parts[1], (Part{1, {-200, 0, 400, 200}}));
}

// 800 pixels at that ratio are told to be 533 points.
TEST(ScreenPlan, span_isPixelForPixel_whereMonitorsShareABrokenRatio)
{
    const ScreenPlan::Monitor first{left, {{0, 0}, {533, 400}}, {800, 600}, 1.5};
    const ScreenPlan::Monitor second{right, {{533, 0}, {533, 400}}, {800, 600}, 1.5};
    const auto plan = ScreenPlan::of({ScreensMode::Span, {}}, {first, second});
    for (const Part& part : plan.pictures.front().parts)
        EXPECT_EQ(part.place.size(), plan.pictures.front().pixels);
}

TEST(ScreenPlan, span_isCoarser_whereItWouldTakeTooMuchMemory)
{
    const auto plan = ScreenPlan::of({ScreensMode::Span, {}}, {monitor(left, {{0, 0}, {4000, 2000}}),
                                                               monitor(right, {{36000, 0}, {4000, 2000}})});
    const ScreenPlan::Picture& picture = plan.pictures.front();
    EXPECT_LT(picture.ratio, 1);
    EXPECT_NEAR(double(picture.pixels.width()) * picture.pixels.height(), ScreenPlan::mostPixels, 40000);
    EXPECT_EQ(picture.parts[1].place, QRect(-36000, 0, 40000, 2000));
}

TEST(ScreenPlan, first_leavesTheOthersOut)
{
    for (const auto mode : {ScreensMode::Each, ScreensMode::Mirror, ScreensMode::Span}) {
        const ScreenPlan plan = planOf(mode, {Kind::First, {}});
        ASSERT_EQ(plan.pictures.size(), 1U);
        EXPECT_EQ(plan.pictures.front().frame, desk.front().frame);
        EXPECT_EQ(plan.pictures.front().parts, (std::vector<Part>{{0, {0, 0, 400, 300}}}));
    }
}

TEST(ScreenPlan, names_chooseTheirMonitors_inTheOrderOfTheDesk)
{
    const ScreenPlan one = planOf(ScreensMode::Each, {Kind::Named, {right}});
    ASSERT_EQ(one.pictures.size(), 1U);
    EXPECT_EQ(one.pictures.front().parts.front().monitor, 1U);
    EXPECT_TRUE(one.missing.isEmpty());
    const ScreenPlan both = planOf(ScreensMode::Mirror, {Kind::Named, {right, left}});
    EXPECT_EQ(both.pictures.front().frame, desk.front().frame);
}

TEST(ScreenPlan, missingNames_areTold_andAllMonitorsUsedWhereNoneIsThere)
{
    const QString other = QStringLiteral("OTHER");
    const ScreenPlan some = planOf(ScreensMode::Each, {Kind::Named, {other, right}});
    EXPECT_EQ(some.pictures.size(), 1U);
    EXPECT_EQ(some.missing, QStringList{other});
    const ScreenPlan none = planOf(ScreensMode::Each, {Kind::Named, {other}});
    EXPECT_EQ(none.pictures.size(), 2U);
    EXPECT_EQ(none.missing, QStringList{other});
}

TEST(ScreenPlan, isEmpty_whileThereIsNoMonitor)
{
    for (const auto mode : {ScreensMode::Each, ScreensMode::Mirror, ScreensMode::Span})
        EXPECT_TRUE(ScreenPlan::of({mode, {Kind::First, {}}}, {}).pictures.empty());
}

} // namespace kestro
