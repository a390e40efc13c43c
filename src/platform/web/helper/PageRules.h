#pragma once

#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>

namespace kestro {

/// What one page may fetch. Of a file, an SWF: nothing but itself; a page: what lies in its folder. Of the
/// net, either: what is on its own site, under the schemes that serve that. Everything else is refused.
/// Owned by its page; main thread.
class PageRules final : public QWebEngineUrlRequestInterceptor {
public:
    enum class Content { Page, Swf };

    /// From now on the rules are those for `content` at that address.
    void setContent(Content content, const QUrl& address);

    [[nodiscard]] bool mayFetch(const QUrl& url) const;
    /// Whether the page may go elsewhere by itself.
    [[nodiscard]] bool mayGoTo(const QUrl& url) const;

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

private:
    [[nodiscard]] bool isOnOwnSite(const QUrl& url) const;

    Content m_content = Content::Page;
    QUrl m_address;
};

} // namespace kestro
