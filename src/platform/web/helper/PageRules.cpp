#include "platform/web/helper/PageRules.h"

#include "platform/web/helper/RuffleScheme.h"

#include <QDir>
#include <QFileInfo>
#include <QWebEngineUrlRequestInfo>

namespace kestro {

namespace {

bool isOnTheNet(const QUrl& url)
{
    const QString scheme = url.scheme();
    return scheme == u"http" || scheme == u"https";
}

/// Of the page's own making; never leads out of it.
bool isInline(const QUrl& url)
{
    return url.scheme() == u"data" || url.scheme() == u"blob";
}

bool isSameSite(const QUrl& one, const QUrl& other)
{
    const auto port = [](const QUrl& url) { return url.port(url.scheme() == u"https" ? 443 : 80); };
    return one.scheme() == other.scheme() && one.host() == other.host() && port(one) == port(other);
}

bool isInFolderOf(const QUrl& page, const QUrl& url)
{
    if (!url.isLocalFile() || !url.host().isEmpty()) return false;
    const QString folder = QFileInfo(page.toLocalFile()).canonicalPath();
    const QString file = QFileInfo(url.toLocalFile()).canonicalFilePath();
    return !folder.isEmpty() && (folder == QDir::rootPath() || file.startsWith(folder + u'/'));
}

} // namespace

void PageRules::setContent(Content content, const QUrl& address)
{
    m_content = content;
    m_address = address;
}

bool PageRules::mayFetch(const QUrl& url) const
{
    return isInline(url) || (m_content == Content::Swf ? maySwfFetch(url) : mayPageFetch(url));
}

bool PageRules::maySwfFetch(const QUrl& url) const
{
    if (url.scheme() == RuffleScheme::name) return true; // it serves nothing but the player and this movie
    return isOnTheNet(m_address) && isSameSite(m_address, url);
}

bool PageRules::mayPageFetch(const QUrl& url) const
{
    if (m_address.isLocalFile()) return isInFolderOf(m_address, url);
    return isOnTheNet(url) || url.scheme() == u"ws" || url.scheme() == u"wss";
}

bool PageRules::mayGoTo(const QUrl& url) const
{
    if (m_content == Content::Swf) return false;
    return m_address.isLocalFile() ? isInFolderOf(m_address, url) : isOnTheNet(url);
}

void PageRules::interceptRequest(QWebEngineUrlRequestInfo& info)
{
    info.block(!mayFetch(info.requestUrl()));
}

} // namespace kestro
