#pragma once

#include "platform/network/Cancellation.h"
#include "platform/network/Fetch.h"

#include <QString>
#include <QStringList>

#include <memory>

class QUrl;

namespace kestro {

class HttpReader;

/// Reads what one web site holds, and nothing else: a redirect stays on the site, and a public host is only
/// ever connected to at a public address, whatever its name leads to. Asks no proxy, sends and keeps no
/// cookies. Owned by whoever asks; fetch() on one thread at a time, cancel() on any.
class SiteFetch final {
public:
    /// What came: its bytes, and the type that the site gives it.
    struct Content {
        QByteArray bytes;
        QString type;
    };

    /// `knownHosts` are names that are not looked up, each as HOST:PORT:ADDRESS; for tests.
    explicit SiteFetch(FetchLimits limits = {}, const QStringList& knownHosts = {});
    ~SiteFetch();
    SiteFetch(const SiteFetch&) = delete;
    SiteFetch& operator=(const SiteFetch&) = delete;

    /// What the http or https URL holds; waits meanwhile. The error is the reason alone.
    [[nodiscard]] Result<Content> fetch(const QUrl& url);
    /// Fails the fetch that runs, within 100 ms, and each later one. Any thread.
    void cancel();

private:
    FetchLimits m_limits;
    Cancellation m_cancellation;
    std::unique_ptr<HttpReader> m_http;
};

} // namespace kestro
