#include "platform/display/desktop/Timer.h"

#include "platform/base/Clock.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/QtTimerSource.h"

#include <QEventLoop>

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

TEST(ManualTimerSource, advanceInsideAnAction_turnsTheOuterClockTooButNeverBack)
{
    ManualClock clock;
    ManualTimerSource timers(clock);
    int runs = 0;
    const auto timer = timers.repeating(1.0, [&] {
        if (++runs == 1) timers.advance(3);
    });
    timers.advance(2);
    EXPECT_DOUBLE_EQ(clock.now(), 4.0);
    EXPECT_EQ(runs, 4);
}

TEST(QtTimerSource, repeating_runsTheActionAgainAndAgain)
{
    QtTimerSource timers;
    QEventLoop loop;
    int runs = 0;
    const auto timer = timers.repeating(0.001, [&] {
        if (++runs == 3) loop.quit();
    });
    loop.exec();
    EXPECT_EQ(runs, 3);
}

TEST(QtTimerSource, timer_mayBeDestroyedInItsOwnAction)
{
    QtTimerSource timers;
    QEventLoop loop;
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
        loop.quit();
    });
    loop.exec();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(fired, nullptr);
}

} // namespace kestro
