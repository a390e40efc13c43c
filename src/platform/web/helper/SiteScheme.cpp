#include "platform/web/helper/SiteScheme.h"

#include "platform/base/URLKind.h"

#include <QBuffer>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include <utility>

namespace kestro {

namespace {

const QString prefix = QStringLiteral("kestro-");

/// What tells one thing on a site from another.
QUrl plain(const QUrl& url)
{
    return url.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
}

void answer(QWebEngineUrlRequestJob& job, const SiteScheme::Content& content)
{
    if (!content.isThere) return job.fail(QWebEngineUrlRequestJob::UrlNotFound);
    auto* const bytes = new QBuffer(&job);
    bytes->setData(content.bytes);
    bytes->open(QIODevice::ReadOnly);
    job.reply(content.type.isEmpty() ? QByteArray("application/octet-stream") : content.type, bytes);
}

} // namespace

const QByteArray SiteScheme::names[2] = {"kestro-http", "kestro-https"};

void SiteScheme::registerNames()
{
    for (const QByteArray& name : names) {
        const bool isSecure = name.endsWith('s');
        QWebEngineUrlScheme scheme(name);
        scheme.setSyntax(QWebEngineUrlScheme::Syntax::HostAndPort);
        scheme.setDefaultPort(isSecure ? 443 : 80);
        scheme.setFlags(isSecure ? QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled
                                 : QWebEngineUrlScheme::CorsEnabled);
        QWebEngineUrlScheme::registerScheme(scheme);
    }
}

QUrl SiteScheme::toScheme(const QUrl& url)
{
    if (!isWebURL(url)) return {};
    QUrl own = plain(url);
    own.setScheme(prefix + url.scheme());
    return own;
}

QUrl SiteScheme::fromScheme(const QUrl& url)
{
    if (!url.scheme().startsWith(prefix)) return {};
    QUrl web = plain(url);
    web.setScheme(url.scheme().sliced(prefix.size()));
    return isWebURL(web) ? web : QUrl();
}

SiteScheme::SiteScheme(Ask ask)
    : m_ask(std::move(ask))
{
}

void SiteScheme::ask(const QUrl& url, OnContent onContent)
{
    m_ownRequest = ++m_lastRequest;
    m_onContent = std::move(onContent);
    m_ask(m_ownRequest, url);
}

void SiteScheme::come(quint32 request, const Content& content)
{
    if (request == m_ownRequest && m_onContent) return std::exchange(m_onContent, nullptr)(content);
    const auto found = m_jobs.find(request);
    if (found == m_jobs.end()) return;
    const QPointer<QWebEngineUrlRequestJob> job = found->second;
    m_jobs.erase(found);
    if (job) answer(*job, content);
}

void SiteScheme::keep(const QUrl& url, Content content)
{
    m_keptAddress = plain(url);
    m_kept = std::move(content);
}

void SiteScheme::requestStarted(QWebEngineUrlRequestJob* job)
{
    const QUrl url = fromScheme(job->requestUrl());
    if (url.isEmpty() || job->requestMethod() != "GET")
        return job->fail(QWebEngineUrlRequestJob::RequestDenied);
    if (!m_keptAddress.isEmpty() && url == m_keptAddress) {
        m_keptAddress.clear();
        return answer(*job, std::exchange(m_kept, {}));
    }
    m_jobs[++m_lastRequest] = job;
    m_ask(m_lastRequest, url);
}

} // namespace kestro
