#include "host/start/StopSignals.h"

#include "host/start/StopThread.h"

#include <QEventLoop>
#include <QTimer>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

namespace {

/// A process of its own for each: what a signal has begun goes on to the process's end. What it does there
/// answers its exit status.
using InProcess = std::function<int()>;

[[noreturn]] void run(const InProcess& work)
{
    takeStopSignals();
    std::_Exit(work());
}

/// Signals the process, as another one would.
void signalSelf(int signal)
{
    kill(getpid(), signal);
}

/// Turns the event loop until `signal`, sent to the process, has arrived there.
int arrivesInEventLoop(int signal)
{
    int arrived = 0;
    QEventLoop loop;
    const StopSignals watch([&](int heard) {
        arrived = heard;
        loop.quit();
    });
    QTimer::singleShot(0, [signal] { signalSelf(signal); });
    loop.exec();
    return arrived == signal ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// A main thread that never comes to its event loop, and hears of no signal itself.
[[noreturn]] void hang()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
    for (;;)
        pause();
}

/// Waits until the thread has told of a signal.
void awaitNote(int told)
{
    pollfd note{told, POLLIN, 0};
    poll(&note, 1, -1);
}

/// Waits until the thread has taken the signal, which it then is about to look at.
void awaitTaken(int signal)
{
    sigset_t waiting;
    do
        sigpending(&waiting);
    while (sigismember(&waiting, signal) == 1);
}

/// Turns the event loop for longer than a signal leaves a process that has so much time.
void outlast(std::chrono::milliseconds patience)
{
    QEventLoop loop;
    QTimer::singleShot(2 * patience, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

TEST(StopSignals, handler_runsInTheEventLoop_whenAStopSignalArrives)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        EXPECT_EXIT(run([&] { return arrivesInEventLoop(signal); }), testing::ExitedWithCode(EXIT_SUCCESS),
                    "")
            << signal;
}

TEST(StopSignals, signal_endsTheProcess_whenNobodyListensYet)
{
    const auto work = [] {
        signalSelf(SIGHUP);
        awaitTaken(SIGHUP);
        signalSelf(SIGTERM); // comes too late
        hang();
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::KilledBySignal(SIGHUP), "");
}

TEST(StopSignals, signal_endsTheProcess_whenNobodyListensAnyMore)
{
    const auto work = [] {
        std::make_unique<StopSignals>([](int) {}).reset();
        signalSelf(SIGHUP);
        awaitTaken(SIGHUP);
        signalSelf(SIGTERM); // comes too late
        hang();
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::KilledBySignal(SIGHUP), "");
}

TEST(StopSignals, ignoredSignal_staysIgnored_whenTheProcessWasStartedSo)
{
    const auto work = [] {
        signalSelf(SIGHUP);
        return arrivesInEventLoop(SIGTERM);
    };
    const auto start = [&] {
        std::signal(SIGHUP, SIG_IGN);
        run(work);
    };
    EXPECT_EXIT(start(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

TEST(StopSignals, process_endsByTheSignal_whenItNeverComesToItsEventLoop)
{
    const auto work = [] {
        const StopSignals watch([](int) {});
        signalSelf(SIGTERM);
        hang();
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::KilledBySignal(SIGTERM), "");
}

TEST(StopSignals, process_endsByTheSignal_whenItHangsAfterItsEventLoop)
{
    const auto work = [] {
        arrivesInEventLoop(SIGINT);
        hang();
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::KilledBySignal(SIGINT), "");
}

TEST(StopSignals, secondSignal_endsTheProcess_whenTheFirstIsNotHandledYet)
{
    const auto work = [] {
        const int told = listenToStopSignals();
        const TimeToSave time; // else the first might end it before
        signalSelf(SIGTERM);
        awaitNote(told);
        signalSelf(SIGINT);
        hang();
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::KilledBySignal(SIGINT), "");
}

TEST(StopSignals, signalThatComesTwiceAtOnce_countsOnce)
{
    const auto work = [] {
        const int told = listenToStopSignals();
        const TimeToSave time;
        signalSelf(SIGTERM);
        awaitNote(told);
        signalSelf(SIGTERM);
        awaitTaken(SIGTERM);
        signalSelf(SIGINT);
        hang();
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::KilledBySignal(SIGINT), "");
}

TEST(StopSignals, hangUpRightAfterTerm_isTheSameWish)
{
    const auto work = [] {
        const int told = listenToStopSignals();
        const TimeToSave time;
        signalSelf(SIGTERM);
        awaitNote(told);
        signalSelf(SIGHUP);
        awaitTaken(SIGHUP);
        signalSelf(SIGINT);
        hang();
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::KilledBySignal(SIGINT), "");
}

TEST(StopSignals, process_hasTheTimeThatASaveTakes_whenOneIsUnderWay)
{
    const auto work = [] {
        const int told = listenToStopSignals();
        const TimeToSave time;
        signalSelf(SIGTERM);
        awaitNote(told);
        outlast(patienceWithSignal);
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

TEST(StopSignals, patience_isNoLongerThanASave_whateverIsWished)
{
    const auto work = [] {
        const int told = listenToStopSignals();
        signalSelf(SIGTERM);
        awaitNote(told);
        outlast(longestSave);
        return EXIT_SUCCESS;
    };
    const auto start = [&] {
        setenv("KESTRO_PATIENCE", "3600000", 1);
        run(work);
    };
    EXPECT_EXIT(start(), testing::KilledBySignal(SIGTERM), "");
}

TEST(StopSignals, process_endsByTheSignal_whenItHangsAfterASave)
{
    const auto work = [] {
        const int told = listenToStopSignals();
        {
            const TimeToSave time;
            signalSelf(SIGTERM);
            awaitNote(told);
        }
        hang();
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::KilledBySignal(SIGTERM), "");
}

TEST(StopSignals, process_endsWithAFailure_whenItHangsAfterItsEndHasBegun)
{
    const auto work = [] {
        beginEnd();
        hang();
        return EXIT_SUCCESS;
    };
    EXPECT_EXIT(run(work), testing::ExitedWithCode(EXIT_FAILURE), "");
}

TEST(StopSignals, signal_endsAForkedProcess_thatListensToNone)
{
    const auto work = [] {
        const pid_t child = fork();
        if (child == 0) {
            for (;;)
                pause();
        }
        kill(child, SIGTERM);
        int status = 0;
        waitpid(child, &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM ? EXIT_SUCCESS : EXIT_FAILURE;
    };
    EXPECT_EXIT(run(work), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

} // namespace kestro
