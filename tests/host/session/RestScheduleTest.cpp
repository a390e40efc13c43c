#include "host/session/RestSchedule.h"

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/display/desktop/ManualTimerSource.h"

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

using namespace std::chrono_literals;

namespace {

class RestScheduleTest : public testing::Test {
protected:
    ManualClock clock;
    ManualTimerSource timers{clock};
    std::vector<Rest> told;
    QStringList said;
    LogCapture capture{[this](const QString& line) { said.append(line); }};
    RestSchedule schedule{timers, [this](Rest how) { told.push_back(how); }};
};

} // namespace

TEST_F(RestScheduleTest, off_comesOnce_whenTheTimeIsOver)
{
    schedule.stopAfter(90s);
    timers.advance(89);
    EXPECT_TRUE(told.empty());
    timers.advance(2);
    EXPECT_EQ(told, std::vector{Rest::Off});
    EXPECT_EQ(schedule.rest(), Rest::Off);
    EXPECT_EQ(said, QStringList{QStringLiteral(
                        "Shown for 1:30: black from now on, so that the displays can sleep.")});
    timers.advance(1000);
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(RestScheduleTest, off_neverComes_whenThereIsNoEnd)
{
    schedule.stopAfter(0s);
    timers.advance(100000);
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(schedule.rest(), Rest::None);
}

TEST_F(RestScheduleTest, rest_followsThePower_andSaysSo)
{
    schedule.setPower(PowerChoice::Still, {});
    schedule.setPower(PowerChoice::Still, {});
    schedule.setPower(PowerChoice::Off, QStringLiteral("12 %"));
    schedule.setPower(PowerChoice::Play, {});
    EXPECT_EQ(told, (std::vector{Rest::Still, Rest::Off, Rest::None}));
    EXPECT_EQ(
        said,
        (QStringList{QStringLiteral("Power is to be saved (on battery): one picture stands for the movie."),
                     QStringLiteral("Power is to be saved (12 %): black for now."),
                     QStringLiteral("Power need not be saved any more: the movie goes on.")}));
}

TEST_F(RestScheduleTest, off_isForGood_whateverThePower)
{
    schedule.stopAfter(10s);
    schedule.setPower(PowerChoice::Still, {});
    timers.advance(11);
    said.clear();
    schedule.setPower(PowerChoice::Play, {});
    EXPECT_EQ(told, (std::vector{Rest::Still, Rest::Off}));
    EXPECT_TRUE(said.isEmpty());
}

} // namespace kestro
