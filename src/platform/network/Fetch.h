#pragma once

#include "platform/base/Result.h"

#include <QByteArray>

class QUrl;

namespace kestro {

/// What one fetch may cost before it is given up.
struct FetchLimits {
    double connectSeconds = 10; ///< to find the server and connect to it
    double silenceSeconds = 30; ///< without a byte once connected
    qint64 bytes = qint64(32) * 1024 * 1024;
    int redirects = 5;
};

/// Reads what a URL holds, whole, on the thread that asks. http, https and file only; a redirect leads to
/// http or https only. Content is taken as it is sent, packed or not. Owned by who crawls; one fetch at a
/// time.
class Fetch {
public:
    Fetch() = default;
    Fetch(const Fetch&) = delete;
    Fetch& operator=(const Fetch&) = delete;
    virtual ~Fetch();

    /// The bytes at `url`, none for what is empty; an error for a server's error status too. Any one thread
    /// at a time, which waits meanwhile.
    virtual Result<QByteArray> fetch(const QUrl& url) = 0;
    /// Fails the fetch that runs, within 100 ms, and each later one at once, until allow(). Any thread.
    virtual void cancel() = 0;
    /// Lets fetches succeed again. Any thread.
    virtual void allow() = 0;
};

} // namespace kestro
