#include "platform/web/helper/Caller.h"

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

} // namespace

bool isLineToParent(int descriptor)
{
    if (optionOf(descriptor, SO_DOMAIN) != AF_UNIX || optionOf(descriptor, SO_TYPE) != SOCK_SEQPACKET ||
        optionOf(descriptor, SO_ACCEPTCONN) != 0)
        return false;
    ucred other{};
    socklen_t size = sizeof other;
    return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 && other.pid == getppid() &&
           other.uid == geteuid();
}

} // namespace kestro
