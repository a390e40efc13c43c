#include "platform/web/helper/Caller.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kestro {

namespace {

/// What the system says of a socket; -1 for what is none.
int optionOf(int descriptor, int name)
{
    int value = -1;
    socklen_t size = sizeof value;
    return getsockopt(descriptor, SOL_SOCKET, name, &value, &size) == 0 ? value : -1;
}

/// Which process of this user made the line that the descriptor is one end of; -1 where it is none.
pid_t makerOf(int descriptor)
{
    if (optionOf(descriptor, SO_DOMAIN) != AF_UNIX || optionOf(descriptor, SO_TYPE) != SOCK_SEQPACKET ||
        optionOf(descriptor, SO_ACCEPTCONN) != 0)
        return -1;
    ucred other{};
    socklen_t size = sizeof other;
    const bool isKnown = getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0;
    return isKnown && other.uid == geteuid() ? other.pid : -1;
}

} // namespace

bool isLineToParent(int descriptor)
{
    return makerOf(descriptor) == getppid();
}

bool isLineLeftBy(int descriptor, pid_t maker)
{
    pollfd other{descriptor, 0, 0};
    return maker > 0 && makerOf(descriptor) == maker && poll(&other, 1, 0) == 1 &&
           (other.revents & POLLHUP) != 0;
}

} // namespace kestro
