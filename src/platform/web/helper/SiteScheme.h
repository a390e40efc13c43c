#pragma once

#include <QByteArray>
#include <QPointer>
#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

#include <functional>
#include <map>

class QWebEngineUrlRequestJob;

namespace kestro {

/// Serves one page what lies on web sites, under schemes of our own: the browser has no network, and the
/// saver, who fetches for it, decides what the page may have. What can only be read is served; nothing can be
/// sent. Owned by its page; main thread.
class SiteScheme final : public QWebEngineUrlSchemeHandler {
public:
    /// What lies at an address; `isThere` is false where it cannot be had, and `type` says why then.
    struct Content {
        bool isThere = false;
        QByteArray bytes;
        QByteArray type;
    };
    using OnContent = std::function<void(const Content&)>;
    /// Asks the saver for an address, under a number.
    using Ask = std::function<void(quint32 request, const QUrl& url)>;

    /// Makes the schemes known to the browser; once, before there is an application object.
    static void registerNames();
    /// The names of the schemes, for http and for https.
    static const QByteArray names[2];

    /// The address, http or https, as the browser knows it, and back; empty for any other.
    [[nodiscard]] static QUrl toScheme(const QUrl& url);
    [[nodiscard]] static QUrl fromScheme(const QUrl& url);

    explicit SiteScheme(Ask ask);

    /// Asks for an address on our own behalf; what comes is told once. Forgets what was asked before.
    void ask(const QUrl& url, OnContent onContent);
    /// What the saver has fetched.
    void come(quint32 request, const Content& content);
    /// The browser gets that content, the next time that it asks for the address.
    void keep(const QUrl& url, Content content);

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    const Ask m_ask;
    quint32 m_lastRequest = 0;
    std::map<quint32, QPointer<QWebEngineUrlRequestJob>> m_jobs;
    quint32 m_ownRequest = 0; ///< 0 for none
    OnContent m_onContent;    ///< of m_ownRequest
    QUrl m_keptAddress;
    Content m_kept;
};

} // namespace kestro
