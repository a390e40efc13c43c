#pragma once

class QString;
class QUrl;
struct sockaddr;

namespace kestro {

// What belongs to one web site, and where a site may be. Any thread.

/// Whether both URLs are of one site: scheme, host and port are the same.
[[nodiscard]] bool isSameSite(const QUrl& one, const QUrl& other);

/// Whether a host is one of the person's own network by what it is called: an address in numbers, a name
/// without a point, or one that ends in a word that no public name ends in (localhost, local, lan, internal,
/// intranet, home, home.arpa). Such a host may be anywhere; every other one is public.
[[nodiscard]] bool isOwnHost(const QString& host);

/// Whether the address is one that the public internet leads to: not of this machine, of a private or shared
/// network, of the link, of many hosts, or of no use at all; also where it is written as one of IPv6 that
/// holds one of IPv4.
[[nodiscard]] bool isPublicAddress(const sockaddr& address);

} // namespace kestro
