#include "platform/display/Timer.h"

#include "platform/base/Clock.h"
#include "platform/display/ManualTimerSource.h"
#include "platform/display/QtTimerSource.h"

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

TEST(ManualTimerSource, advance_runsEachActionAsOftenAsItsSpanPasses_inOrderOfTime)
{
    ManualClock clock;
    ManualTimerSource timers(clock);
    std::vector<std::pair<char, double>> runs;
    const auto slow = timers.repeating(0.5, [&] { runs.emplace_back('s', clock.now()); });
    const auto quick = timers.repeating(0.25, [&] { runs.emplace_back('q', clock.now()); });
    timers.advance(0.8);
    const std::vector<std::pair<char, double>> expected{{'q', 0.25}, {'s', 0.5}, {'q', 0.5}, {'q', 0.75}};
    EXPECT_EQ(runs, expected);
    EXPECT_DOUBLE_EQ(clock.now(), 0.8);
}

TEST(ManualTimerSource, manySmallSteps_missNoTurn)
{
    ManualClock clock;
    ManualTimerSource timers(clock);
    int runs = 0;
    const auto timer = timers.repeating(1.0, [&] { ++runs; });
    for (int step = 0; step < 1000; ++step)
        timers.advance(0.1);
    EXPECT_EQ(runs, 100);
}

TEST(ManualTimerSource, timer_stops_whenDestroyed)
{
    ManualClock clock;
    ManualTimerSource timers(clock);
    int runs = 0;
    auto timer = timers.repeating(1.0, [&] { ++runs; });
    timer.reset();
    timers.advance(5);
    EXPECT_EQ(runs, 0);
}

TEST(ManualTimerSource, timer_mayBeDestroyedInItsOwnAction)
{
    ManualClock clock;
    ManualTimerSource timers(clock);
    std::vector<int> runs;
    std::unique_ptr<Timer> timer;
    timer = timers.repeating(1.0, [&, kept = std::vector<int>(100, 7)] {
        timer.reset();
        runs.push_back(kept.back());
    });
    timers.advance(5);
    EXPECT_EQ(runs, std::vector<int>{7});
}

TEST(ManualTimerSource, fire_runsTheActionOutOfTurn)
{
    ManualClock clock;
    ManualTimerSource timers(clock);
    std::vector<double> runs;
    const auto timer = timers.repeating(1.0, [&] { runs.push_back(clock.now()); });
    timers.advance(0.5);
    timer->fire();
    timers.advance(0.5);
    EXPECT_EQ(runs, (std::vector<double>{0.5, 1.0}));
}

TEST(ManualTimerSource, wait_turnsTheClockUntilStopped)
{
    ManualClock clock;
    ManualTimerSource timers(clock);
    int runs = 0;
    const auto timer = timers.repeating(1.0, [&] {
        if (++runs == 4) timers.stopWaiting();
    });
    timers.wait(2.5);
    EXPECT_DOUBLE_EQ(clock.now(), 2.5);
    timers.wait(10);
    EXPECT_DOUBLE_EQ(clock.now(), 4.0);
    timers.stopWaiting();
    timers.wait(1.5);
    EXPECT_DOUBLE_EQ(clock.now(), 5.5);
}

TEST(ManualTimerSource, waitInsideAnAction_turnsTheOuterClockTooButNeverBack)
{
    ManualClock clock;
    ManualTimerSource timers(clock);
    int runs = 0;
    const auto timer = timers.repeating(1.0, [&] {
        if (++runs == 1) timers.wait(3);
    });
    timers.advance(2);
    EXPECT_DOUBLE_EQ(clock.now(), 4.0);
    EXPECT_EQ(runs, 4);
}

TEST(QtTimerSource, repeating_runsTheActionAgainAndAgain)
{
    QtTimerSource timers;
    int runs = 0;
    const auto timer = timers.repeating(0.001, [&] {
        if (++runs == 3) timers.stopWaiting();
    });
    timers.wait(30);
    EXPECT_EQ(runs, 3);
}

TEST(QtTimerSource, timer_mayBeDestroyedInItsOwnAction)
{
    QtTimerSource timers;
    int runs = 0;
    std::unique_ptr<Timer> timer;
    std::unique_ptr<Timer> fired;
    timer = timers.repeating(0.001, [&] {
        timer.reset();
        ++runs;
        fired->fire();
    });
    fired = timers.repeating(1000, [&] {
        fired.reset();
        timers.stopWaiting();
    });
    timers.wait(30);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(fired, nullptr);
}

TEST(QtTimerSource, wait_letsEventsThroughAndEndsByItself)
{
    QtTimerSource timers;
    bool delivered = false;
    QTimer::singleShot(0, QCoreApplication::instance(), [&] { delivered = true; });
    timers.wait(0.005);
    EXPECT_TRUE(delivered);
}

TEST(QtTimerSource, stopWaiting_endsNestedWaits)
{
    QtTimerSource timers;
    bool innerEnded = false;
    QTimer::singleShot(0, QCoreApplication::instance(), [&] {
        QTimer::singleShot(0, QCoreApplication::instance(), [&] { timers.stopWaiting(); });
        timers.wait(30);
        innerEnded = true;
    });
    timers.wait(30);
    EXPECT_TRUE(innerEnded);
}

} // namespace kestro
