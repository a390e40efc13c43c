#include "platform/session/ListeningSocket.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace kestro {

int listenAt(const QByteArray& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), address.sun_path);
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener, 1) != 0)
        ADD_FAILURE() << "no socket at " << path.constData();
    return listener;
}

} // namespace kestro
