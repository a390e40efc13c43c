#pragma once

#include "platform/network/Cancellation.h"
#include "platform/network/Fetch.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <memory>

namespace kestro {

class FetchSink;
class HttpTransfer;

/// Reads http and https URLs with libcurl, over connections that stay open while it lives. Owned by
/// CurlFetch, SiteFetch or Download; read() on one thread at a time, wake() on any. Tested by
/// CurlFetchHttpTest.
class HttpReader final {
public:
    /// How far it goes: wherever redirects and names lead, or to the URL alone, without a proxy, and to a
    /// public address where the host is a public one.
    enum class Reach { Anywhere, OneSite };

    explicit HttpReader(const FetchLimits& limits, Reach reach = Reach::Anywhere);
    ~HttpReader();
    HttpReader(const HttpReader&) = delete;
    HttpReader& operator=(const HttpReader&) = delete;

    /// What a server of status 200 to 299 sends; an error for all else, and once `watch` is cancelled.
    /// Where there is a `sink`, that takes it, and nothing is answered.
    [[nodiscard]] FetchResult read(const QUrl& url, const Cancellation::Watch& watch,
                                   FetchSink* sink = nullptr);
    /// Lines of the head of each request from now on, besides those that it always has.
    void setConditions(const QList<QByteArray>& headers);
    /// Does not look up the name in HOST:PORT:ADDRESS any more.
    void knowHost(const QString& host);
    /// Where the answer before leads to instead; empty where it leads nowhere. With OneSite alone.
    [[nodiscard]] QUrl redirection() const;
    /// The type that the answer before is said to have; empty for none.
    [[nodiscard]] QString type() const;
    /// Its status; 0 where there was no answer.
    [[nodiscard]] int status() const;
    /// The line of that name in its head; empty for none.
    [[nodiscard]] QByteArray header(const char* name) const;
    /// Has read() look at its watch now.
    void wake();
    /// The bytes that came so far, with all heads and redirects.
    [[nodiscard]] qint64 received() const { return m_received; }

private:
    class Handles;

    [[nodiscard]] FetchResult run(HttpTransfer& transfer, const Cancellation::Watch& watch);

    std::unique_ptr<Handles> m_handles;
    FetchLimits m_limits;
    qint64 m_received = 0;
};

} // namespace kestro
