#pragma once

#include "platform/network/Cancellation.h"
#include "platform/network/Fetch.h"

#include <QByteArray>

#include <memory>

class QUrl;

namespace kestro {

class FetchSink;
class HttpReader;

/// What a server calls the version of what it has; empty where it does not.
struct RemoteVersion {
    QByteArray tag = {};      ///< "ETag"
    QByteArray modified = {}; ///< "Last-Modified"

    bool operator==(const RemoteVersion&) const = default;
};

/// Fetches what is too large for memory, over http and https, and only where it is another version than the
/// one that is there. Owned by who keeps it; run() on one thread at a time, cancel() on any. Tested by
/// MovieKeeperTest.
class Download final {
public:
    struct Answer {
        bool isNew = true; ///< else the server still has the version that was named, and nothing came
        RemoteVersion version = {};
    };

    explicit Download(const FetchLimits& limits);
    ~Download();
    Download(const Download&) = delete;
    Download& operator=(const Download&) = delete;

    /// Hands what is at `url` to `sink`; `known` is the version that is there already. The error is the
    /// reason alone; that of a sink that gave up is known to it.
    [[nodiscard]] Result<Answer, FetchFault> run(const QUrl& url, const RemoteVersion& known,
                                                 FetchSink& sink);
    /// Fails the run that is under way, within 100 ms, and each later one at once, until allow().
    void cancel();
    void allow();

private:
    FetchLimits m_limits;
    Cancellation m_cancellation;
    std::unique_ptr<HttpReader> m_http;
};

} // namespace kestro
