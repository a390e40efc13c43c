#pragma once

#include "platform/base/Bounds.h"
#include "platform/base/Result.h"

#include <QByteArray>
#include <QString>

class QUrl;

namespace kestro {

/// What one fetch may cost before it is given up.
struct FetchLimits {
    double connectSeconds = Bounds::connectSeconds; ///< to find the server and connect to it
    double silenceSeconds = Bounds::silenceSeconds; ///< without a byte once connected
    double seconds = Bounds::pageSeconds;           ///< in all; 0 for no such limit
    qint64 bytes = Bounds::pageBytes;
    int redirects = Bounds::redirects;
    qint64 bytesPerSecond = 0; ///< so that others have the rest of the line; 0 for as many as come
};

/// Why a fetch has brought nothing.
struct FetchFault {
    enum class Kind {
        Unreadable,
        OverLimit, ///< it would cost more than it may
        Cancelled,
    };
    Kind kind = Kind::Unreadable;
    QString message; ///< the reason alone, in one line
};

using FetchResult = Result<QByteArray, FetchFault>;

/// Reads what a URL holds, whole, on the thread that asks. http, https and file only; a redirect leads to
/// http or https only. Content is taken as it is sent, packed or not. Owned by who crawls; one fetch at a
/// time. Tested by CurlFetchHttpTest.
class Fetch {
public:
    Fetch() = default;
    Fetch(const Fetch&) = delete;
    Fetch& operator=(const Fetch&) = delete;
    virtual ~Fetch();

    /// The bytes at `url`, none for what is empty; an error for a server's error status too. Any one thread
    /// at a time, which waits meanwhile.
    virtual FetchResult fetch(const QUrl& url) = 0;
    /// Fails the fetch that runs, within 100 ms, and each later one at once, until allow(). Any thread.
    virtual void cancel() = 0;
    /// Lets fetches succeed again. Any thread.
    virtual void allow() = 0;
    /// The bytes that all fetches so far have brought, those that failed too. Between fetches, on their
    /// thread.
    [[nodiscard]] virtual qint64 received() const = 0;
};

} // namespace kestro
