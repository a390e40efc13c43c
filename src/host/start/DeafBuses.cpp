#include "host/start/DeafBuses.h"

#include "platform/base/Log.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QList>
#include <QString>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <iterator>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 1;               // seconds
constexpr const char* none = "disabled:"; // the address that libdbus and Qt take for no bus, at once

struct Bus {
    const char* variable; ///< of the environment, which has its addresses
    QByteArray usual;     ///< its address where that has none
    QString name;
};

QByteArray runtimeSocket()
{
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    return folder.isEmpty() ? QByteArray() : folder + "/bus";
}

/// The name of the socket that an address means, one that is in no folder with a 0 before it; empty where it
/// means none of this machine's.
QByteArray socketOf(const QByteArray& address)
{
    static const QByteArray local = "unix:";
    if (!address.startsWith(local)) return {};
    for (const QByteArray& pair : address.mid(local.size()).split(',')) {
        const auto equals = pair.indexOf('=');
        const QByteArray key = pair.left(equals);
        const QByteArray value = QByteArray::fromPercentEncoding(pair.mid(equals + 1));
        if (key == "path") return value;
        if (key == "abstract") return '\0' + value;
        if (key == "runtime") return runtimeSocket();
    }
    return {};
}

/// A connection to a bus that was asked to let us in, and whether it says anything to that.
class Call final {
public:
    explicit Call(const Bus& bus)
    {
        const QByteArray told = qgetenv(bus.variable);
        for (const QByteArray& address : (told.isEmpty() ? bus.usual : told).split(';'))
            if (reach(socketOf(address))) return;
    }
    ~Call() { hangUp(); }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    [[nodiscard]] bool isThere() const { return m_socket >= 0 || m_isFull; }
    /// No for one that is not there: nobody waits for that.
    [[nodiscard]] bool isDeaf(const QDeadlineTimer& until) const
    {
        if (m_socket < 0) return m_isFull;
        pollfd wait{m_socket, POLLIN, 0};
        return poll(&wait, 1, static_cast<int>(until.remainingTime())) == 0;
    }

private:
    bool reach(const QByteArray& name)
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (name.isEmpty() || std::size_t(name.size()) >= sizeof address.sun_path) return false;
        std::ranges::copy(name, address.sun_path);
        const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
        m_socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const timeval longest{patience, 0}; // that there is room for one more to wait
        setsockopt(m_socket, SOL_SOCKET, SO_SNDTIMEO, &longest, sizeof longest);
        if (connect(m_socket, reinterpret_cast<const sockaddr*>(&address), size) == 0) return ask();
        m_isFull = errno == EAGAIN;
        hangUp();
        return m_isFull;
    }
    /// As whoever comes to a bus does first, with the user's number in place of a name.
    bool ask()
    {
        const QByteArray request = "\0AUTH EXTERNAL "_ba + QByteArray::number(getuid()).toHex() + "\r\n";
        return send(m_socket, request.constData(), std::size_t(request.size()), MSG_NOSIGNAL) > 0;
    }
    void hangUp()
    {
        if (m_socket >= 0) close(m_socket);
        m_socket = -1;
    }

    int m_socket = -1;
    bool m_isFull = false; ///< so many wait before it that there is no room for another
};

} // namespace

void leaveDeafBuses()
{
    const QByteArray usualOfSession = "unix:path=" + runtimeSocket().toPercentEncoding("/");
    const Bus buses[] = {
        {"DBUS_SESSION_BUS_ADDRESS", usualOfSession, QStringLiteral("session")},
        {"DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/run/dbus/system_bus_socket", QStringLiteral("system")}};
    const Call calls[] = {Call(buses[0]), Call(buses[1])}; // both at once
    const QDeadlineTimer until(std::chrono::seconds{patience});
    if (qgetenv(buses[0].variable).isEmpty() && !calls[0].isThere()) qputenv(buses[0].variable, none);
    for (std::size_t i = 0; i < std::size(buses); ++i) {
        if (!calls[i].isDeaf(until)) continue;
        qputenv(buses[i].variable, none);
        logLine(QStringLiteral("The %1's message bus does not answer: it is left alone.").arg(buses[i].name));
    }
}

} // namespace kestro
