#include "platform/network/Site.h"

#include <QString>
#include <QUrl>

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstdint>
#include <cstring>
#include <netinet/in.h>

namespace kestro {

namespace {

/// The addresses that begin as `start` does, for so many bits.
struct Network4 {
    std::uint32_t start;
    int bits;
};

constexpr Network4 notPublic[] = {
    {0x00000000, 8},  // this network
    {0x0A000000, 8},  // private
    {0x64400000, 10}, // shared by a provider's customers
    {0x7F000000, 8},  // this machine
    {0xA9FE0000, 16}, // the link
    {0xAC100000, 12}, // private
    {0xC0000000, 24}, // protocol assignments
    {0xC0000200, 24}, // for documents
    {0xC0586300, 24}, // relays of 6to4
    {0xC0A80000, 16}, // private
    {0xC6120000, 15}, // for measurements
    {0xC6336400, 24}, // for documents
    {0xCB007100, 24}, // for documents
    {0xE0000000, 3},  // many hosts, reserved, all hosts
};

bool isPublic4(std::uint32_t address)
{
    return std::ranges::none_of(notPublic, [address](const Network4& network) {
        return (address ^ network.start) >> (32 - network.bits) == 0;
    });
}

using Bytes6 = std::array<std::uint8_t, 16>;

std::uint32_t inner4(const Bytes6& bytes, std::size_t at)
{
    return std::uint32_t{bytes[at]} << 24 | std::uint32_t{bytes[at + 1]} << 16 |
           std::uint32_t{bytes[at + 2]} << 8 | bytes[at + 3];
}

bool startsWith(const Bytes6& bytes, std::initializer_list<std::uint8_t> start)
{
    return std::equal(start.begin(), start.end(), bytes.begin());
}

bool isPublic6(const Bytes6& bytes)
{
    if (startsWith(bytes, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF})) return isPublic4(inner4(bytes, 12));
    if (startsWith(bytes, {0x00, 0x64, 0xFF, 0x9B, 0, 0, 0, 0, 0, 0, 0, 0}))
        return isPublic4(inner4(bytes, 12));
    if (startsWith(bytes, {0x20, 0x02})) return isPublic4(inner4(bytes, 2)); // 6to4
    if (startsWith(bytes, {0x20, 0x01, 0x0D, 0xB8})) return false;           // for documents
    if (startsWith(bytes, {0x20, 0x01}) && bytes[2] < 2) return false;       // Teredo and other protocols
    return (bytes[0] & 0xE0) == 0x20; // all that is public has been given out of here
}

} // namespace

bool isSameSite(const QUrl& one, const QUrl& other)
{
    const auto port = [](const QUrl& url) { return url.port(url.scheme() == u"https" ? 443 : 80); };
    return one.scheme() == other.scheme() && one.host() == other.host() && port(one) == port(other);
}

bool isOwnHost(const QString& host)
{
    const QByteArray text = host.toLatin1();
    Bytes6 room{};
    if (inet_pton(AF_INET, text.constData(), room.data()) == 1 ||
        inet_pton(AF_INET6, text.constData(), room.data()) == 1)
        return true;
    QStringView name(host);
    if (name.endsWith(u'.')) name.chop(1);
    if (name.isEmpty()) return false;
    if (!name.contains(u'.')) return true;
    const QStringView last = name.sliced(name.lastIndexOf(u'.') + 1);
    const auto is = [last](const char* word) {
        return last.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    };
    constexpr std::array words{"localhost", "local", "lan", "internal", "intranet", "home"};
    return std::ranges::any_of(words, is) || name.endsWith(u".home.arpa", Qt::CaseInsensitive);
}

bool isPublicAddress(const sockaddr& address)
{
    if (address.sa_family == AF_INET) {
        sockaddr_in of4{};
        std::memcpy(&of4, &address, sizeof of4);
        return isPublic4(ntohl(of4.sin_addr.s_addr));
    }
    if (address.sa_family != AF_INET6) return false;
    sockaddr_in6 of6{};
    std::memcpy(&of6, &address, sizeof of6);
    Bytes6 bytes{};
    std::memcpy(bytes.data(), &of6.sin6_addr, bytes.size());
    return isPublic6(bytes);
}

} // namespace kestro
