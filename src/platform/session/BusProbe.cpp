#include "platform/session/BusProbe.h"

#include "platform/base/Descriptor.h"

#include <QByteArrayList>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace kestro {

namespace {

struct SocketName {
    sockaddr_un address{};
    socklen_t size = 0;
};

/// An abstract name begins with a zero byte, and is as long as it is.
std::optional<SocketName> socketName(const QByteArray& name, bool isAbstract)
{
    SocketName found;
    found.address.sun_family = AF_UNIX;
    if (name.isEmpty() || std::size_t(name.size()) + 1 >= sizeof found.address.sun_path) return {};
    std::memcpy(found.address.sun_path + (isAbstract ? 1 : 0), name.constData(), std::size_t(name.size()));
    found.size = socklen_t(offsetof(sockaddr_un, sun_path) + std::size_t(name.size()) + 1);
    return found;
}

/// "unix:path=/run/dbus/system_bus_socket,guid=…"; of several addresses the first.
std::optional<SocketName> socketOf(const QByteArray& address)
{
    const QByteArray first = address.split(';').constFirst();
    if (!first.startsWith("unix:")) return {};
    for (const QByteArray& part : first.mid(5).split(',')) {
        if (part.startsWith("path=")) return socketName(QByteArray::fromPercentEncoding(part.mid(5)), false);
        if (part.startsWith("abstract="))
            return socketName(QByteArray::fromPercentEncoding(part.mid(9)), true);
    }
    return {};
}

} // namespace

QByteArray systemBusAddress()
{
    const QByteArray said = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    return said.isEmpty() ? QByteArrayLiteral("unix:path=/var/run/dbus/system_bus_socket") : said;
}

// What any client says first; a bus answers it whether it lets the client in or not.
bool isBusAnswering(const QByteArray& address, std::chrono::milliseconds longest)
{
    const auto name = socketOf(address);
    if (!name) return false;
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const auto* const to = reinterpret_cast<const sockaddr*>(&name->address);
    if (socket.number() < 0 || ::connect(socket.number(), to, name->size) != 0) return false;
    const QByteArray greeting =
        QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(getuid()).toHex() + "\r\n";
    const auto sent =
        ::send(socket.number(), greeting.constData(), std::size_t(greeting.size()), MSG_NOSIGNAL);
    if (sent != greeting.size()) return false;
    pollfd answer{socket.number(), POLLIN, 0};
    char byte = 0;
    return ::poll(&answer, 1, int(longest.count())) == 1 && ::recv(socket.number(), &byte, 1, 0) == 1;
}

} // namespace kestro
