#include "host/start/StopSignals.h"

#include <QEventLoop>
#include <QTimer>

#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace kestro {

namespace {

/// Turns the event loop until `signal`, raised in it, has arrived; answers how often, with a bound.
int arrivalsOf(int signal)
{
    int arrivals = 0;
    QEventLoop loop;
    const StopSignals watch([&](int arrived) {
        if (arrived == signal) ++arrivals;
        loop.quit();
    });
    QTimer::singleShot(0, [signal] { std::raise(signal); });
    QTimer::singleShot(30000, &loop, &QEventLoop::quit);
    loop.exec();
    return arrivals;
}

} // namespace

TEST(StopSignals, handler_runsInTheEventLoop_whenAStopSignalArrives)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        EXPECT_EQ(arrivalsOf(signal), 1) << signal;
}

TEST(StopSignals, defaults_areBack_whenDestroyed)
{
    EXPECT_EQ(arrivalsOf(SIGTERM), 1);
    EXPECT_EXIT(std::raise(SIGTERM), testing::KilledBySignal(SIGTERM), "");
}

TEST(StopSignals, ignoredSignal_staysIgnored_whenTheProcessWasStartedSo)
{
    std::signal(SIGHUP, SIG_IGN);
    {
        const StopSignals watch([](int) {});
        struct sigaction current = {};
        ASSERT_EQ(sigaction(SIGHUP, nullptr, &current), 0);
        EXPECT_EQ(current.sa_handler, SIG_IGN);
    }
    std::signal(SIGHUP, SIG_DFL);
}

TEST(StopSignals, secondSignal_endsTheProcess_whenTheFirstIsNotHandledYet)
{
    const auto twice = [] {
        const StopSignals watch([](int) {});
        std::raise(SIGTERM);
        std::raise(SIGINT);
    };
    EXPECT_EXIT(twice(), testing::KilledBySignal(SIGINT), "");
}

TEST(StopSignals, process_endsByItself_whenItNeverComesToItsEventLoop)
{
    const auto hang = [] {
        const StopSignals watch([](int) {});
        std::raise(SIGTERM);
        while (true)
            pause();
    };
    EXPECT_EXIT(hang(), testing::ExitedWithCode(1), "");
}

} // namespace kestro
