#include "platform/web/helper/Guardian.h"

#include "platform/web/ProfileFolder.h"

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace kestro {

namespace {

constexpr int mostTurns = 1000;

void waitForHangUp(int channel)
{
    pollfd watched{channel, 0, 0};
    while (poll(&watched, 1, -1) < 0 && errno == EINTR) {
    }
}

/// The browser goes on meanwhile, and may put something back.
void removeForGood(const QString& folder)
{
    for (int turn = 0; turn < mostTurns && ProfileFolder::isOne(folder); ++turn)
        ProfileFolder::remove(folder);
}

} // namespace

void endWithParent(int channel, const QString& home)
{
    std::thread([channel, home] {
        waitForHangUp(channel);
        removeForGood(home);
        if (getpgrp() == getpid()) kill(0, SIGKILL);
        _exit(0);
    }).detach();
}

} // namespace kestro
