// Runs a hack, and sees to it that nothing of it outlives the saver.
//
// usage: kestro-hack-guard PROGRAM [ARGUMENT…]
//
// Standard input is a pipe that the saver holds the other end of and never writes to: when that end closes,
// the saver wants the hack gone, or is itself gone, however that came. The hack runs in a process group of
// its own; the group gets a TERM then, and what is left of it, or fled into another group, a KILL soon after.
// The exit status tells how the hack ended. A program of its own, because it must go on when the saver does
// not. Tested by HackHostTest.

#include "platform/saver/HackGuardStatus.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Time = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int niceness = 10;
constexpr milliseconds graceToEnd{400};
constexpr milliseconds boundToKill{300};

/// What arrives: the end of the pipe, the end of a child, or a signal that asks for our own end.
sigset_t watchedSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGCHLD, SIGTERM, SIGINT, SIGHUP})
        sigaddset(&set, signal);
    return set;
}

/// In the new process. What is left of it answers the error of the program that cannot be run.
[[noreturn]] void becomeHack(char** command, pid_t guard, int report)
{
    setpgid(0, 0);
    // Should the guard be killed; and should that have happened before it was asked for, here it shows.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != guard) _exit(EXIT_FAILURE);
    setpriority(PRIO_PROCESS, 0, niceness);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nothing, stream);
    execv(command[0], command);
    const char failed = 1;
    _exit(write(report, &failed, 1) == 1 ? EXIT_FAILURE : EXIT_SUCCESS);
}

/// The process of the hack; -1 where it cannot be run.
pid_t startHack(char** command)
{
    int report[2] = {-1, -1};
    if (pipe2(report, O_CLOEXEC) != 0) return -1;
    const pid_t guard = getpid();
    const pid_t hack = fork();
    if (hack == 0) becomeHack(command, guard, report[1]);
    close(report[1]);
    char failed = 0;
    const bool isRunning = hack > 0 && read(report[0], &failed, 1) == 0;
    close(report[0]);
    return isRunning ? hack : -1;
}

struct Reaped {
    bool isHack = false; ///< the hack itself was among them
    int status = 0;      ///< how it ended
    bool isAll = false;  ///< there is no child left
};

/// Takes leave of every child that has ended.
Reaped reap(pid_t hack)
{
    Reaped reaped;
    int status = 0;
    pid_t child = 0;
    while ((child = waitpid(-1, &status, WNOHANG)) > 0) {
        if (child != hack) continue;
        reaped.isHack = true;
        reaped.status = status;
    }
    reaped.isAll = child < 0;
    return reaped;
}

/// The children of this process, those it took over from others that ended among them.
void killChildren()
{
    std::ifstream children("/proc/self/task/" + std::to_string(getpid()) + "/children");
    for (pid_t child = 0; children >> child;)
        kill(child, SIGKILL);
}

/// Waits up to that long for every child to end; whether all did.
bool awaitEnd(int signals, milliseconds bound, bool isKilling)
{
    const auto end = Time::now() + bound;
    while (!reap(-1).isAll) {
        const auto left = std::chrono::duration_cast<milliseconds>(end - Time::now());
        if (left.count() <= 0) return false;
        if (isKilling) killChildren();
        constexpr milliseconds again{20}; // who flees from a KILL is met at the next one
        pollfd wake{signals, POLLIN, 0};
        poll(&wake, 1, static_cast<int>((isKilling ? std::min(again, left) : left).count()));
        signalfd_siginfo info{};
        while (read(signals, &info, sizeof info) == sizeof info && info.ssi_signo == SIGCHLD) {
        }
    }
    return true;
}

void endEverything(pid_t group, int signals)
{
    kill(-group, SIGTERM);
    if (awaitEnd(signals, graceToEnd, false)) return;
    kill(-group, SIGKILL);
    awaitEnd(signals, boundToKill, true);
}

/// Until the hack has ended or is to be ended.
kestro::HackGuardStatus watch(pid_t hack, int signals)
{
    for (;;) {
        pollfd waits[] = {{STDIN_FILENO, POLLIN, 0}, {signals, POLLIN, 0}};
        if (poll(waits, 2, -1) < 0 && errno != EINTR) return kestro::HackGuardStatus::Ended;
        if (waits[0].revents != 0) return kestro::HackGuardStatus::Ended;
        signalfd_siginfo info{};
        if (read(signals, &info, sizeof info) != sizeof info) continue;
        if (info.ssi_signo != SIGCHLD) return kestro::HackGuardStatus::Ended;
        if (const Reaped reaped = reap(hack); reaped.isHack)
            return WIFEXITED(reaped.status) ? kestro::HackGuardStatus::Ended
                                            : kestro::HackGuardStatus::Crashed;
    }
}

} // namespace

int main(int argc, char** argv)
{
    const sigset_t watched = watchedSignals();
    sigprocmask(SIG_BLOCK, &watched, nullptr);
    const int signals = signalfd(-1, &watched, SFD_NONBLOCK | SFD_CLOEXEC);
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    const pid_t hack = argc > 1 && signals >= 0 ? startHack(argv + 1) : -1;
    if (hack < 0) return static_cast<int>(kestro::HackGuardStatus::NotStarted);
    const auto status = watch(hack, signals);
    endEverything(hack, signals);
    return static_cast<int>(status);
}
