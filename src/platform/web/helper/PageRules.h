#pragma once

#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>

namespace kestro {

/// What one page may fetch. An SWF from a file: nothing but itself. An SWF from the net: what is on its own
/// site. A page from the net: what is on the net. A page from a file: what lies in its folder. Everything
/// else is refused, redirects included. Owned by its page; main thread.
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
    [[nodiscard]] bool mayPageFetch(const QUrl& url) const;
    [[nodiscard]] bool maySwfFetch(const QUrl& url) const;

    Content m_content = Content::Page;
    QUrl m_address;
};

} // namespace kestro
