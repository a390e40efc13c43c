#include "platform/network/SiteFetch.h"

#include "platform/base/URLKind.h"
#include "platform/network/HttpReader.h"
#include "platform/network/Site.h"

#include <QUrl>

namespace kestro {

SiteFetch::SiteFetch(FetchLimits limits, const QStringList& knownHosts)
    : m_limits(limits)
    , m_http(std::make_unique<HttpReader>(limits, HttpReader::Reach::OneSite))
{
    for (const QString& each : knownHosts)
        m_http->knowHost(each);
}

SiteFetch::~SiteFetch() = default;

Result<SiteFetch::Content> SiteFetch::fetch(const QUrl& url)
{
    const Cancellation::Watch watch(m_cancellation);
    if (!isWebURL(url)) return Error{QStringLiteral("neither http nor https")};
    QUrl address = url;
    for (int redirect = 0; redirect <= m_limits.redirects; ++redirect) {
        if (watch.isCancelled()) return Error{QStringLiteral("cancelled")};
        auto bytes = m_http->read(address, watch);
        const QUrl next = m_http->redirection();
        if (next.isEmpty()) {
            if (!bytes) return Error{bytes.failure().message};
            return Content{std::move(bytes.value()), m_http->type()};
        }
        if (!isSameSite(next, url)) return Error{QStringLiteral("it leads to another site")};
        address = next;
    }
    return Error{QStringLiteral("it leads on and on")};
}

void SiteFetch::cancel()
{
    m_cancellation.cancel();
    m_http->wake();
}

} // namespace kestro
