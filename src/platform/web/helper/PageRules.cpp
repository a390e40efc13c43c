#include "platform/web/helper/PageRules.h"

#include "platform/network/Site.h"
#include "platform/web/helper/RuffleScheme.h"
#include "platform/web/helper/SiteScheme.h"

#include <QDir>
#include <QFileInfo>
#include <QWebEngineUrlRequestInfo>

namespace kestro {

namespace {

/// Of the page's own making; never leads out of it.
bool isInline(const QUrl& url)
{
    return url.scheme() == u"data" || url.scheme() == u"blob";
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
    if (isInline(url) || isOnOwnSite(url)) return true;
    // The player's scheme serves nothing but the player and this movie.
    if (m_content == Content::Swf) return url.scheme() == RuffleScheme::name;
    return m_address.isLocalFile() && isInFolderOf(m_address, url);
}

bool PageRules::isOnOwnSite(const QUrl& url) const
{
    const QUrl web = SiteScheme::fromScheme(url);
    return !web.isEmpty() && isSameSite(web, m_address);
}

bool PageRules::mayGoTo(const QUrl& url) const
{
    if (m_content == Content::Swf) return false;
    return m_address.isLocalFile() ? isInFolderOf(m_address, url) : isOnOwnSite(url);
}

void PageRules::interceptRequest(QWebEngineUrlRequestInfo& info)
{
    info.block(!mayFetch(info.requestUrl()));
}

} // namespace kestro
