#include "platform/network/CurlFetch.h"

#include "platform/network/HttpReader.h"
#include "platform/network/LocalFile.h"

#include <QUrl>

namespace kestro {

CurlFetch::CurlFetch(FetchLimits limits)
    : m_limits(limits)
    , m_http(std::make_unique<HttpReader>(limits))
{
}

CurlFetch::~CurlFetch() = default;

FetchResult CurlFetch::fetch(const QUrl& url)
{
    const Cancellation::Watch watch(m_cancellation);
    const auto cancelled = FetchFault{FetchFault::Kind::Cancelled, QStringLiteral("cancelled")};
    if (watch.isCancelled()) return cancelled;
    auto bytes = read(url, watch);
    if (watch.isCancelled()) return cancelled;
    if (!bytes) return FetchFault{bytes.failure().kind, bytes.failure().message.simplified()};
    return bytes;
}

FetchResult CurlFetch::read(const QUrl& url, const Cancellation::Watch& watch)
{
    if (!url.isValid()) return FetchFault{.message = QStringLiteral("no valid URL")};
    if (url.scheme() == u"file") {
        auto bytes = readLocalFile(url, m_limits.bytes, watch);
        if (bytes) m_fileBytes += bytes.value().size();
        return bytes;
    }
    if (url.scheme() == u"http" || url.scheme() == u"https") return m_http->read(url, watch);
    return FetchFault{.message = QStringLiteral("neither http, https nor file")};
}

void CurlFetch::cancel()
{
    m_cancellation.cancel();
    m_http->wake();
}

void CurlFetch::allow()
{
    m_cancellation.allow();
}

qint64 CurlFetch::received() const
{
    return m_fileBytes + m_http->received();
}

} // namespace kestro
