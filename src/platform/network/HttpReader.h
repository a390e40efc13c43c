#pragma once

#include "platform/network/Cancellation.h"
#include "platform/network/Fetch.h"

#include <memory>

namespace kestro {

/// Reads http and https URLs with libcurl, over connections that stay open while it lives. Owned by
/// CurlFetch; read() on one thread at a time, wake() on any.
class HttpReader final {
public:
    explicit HttpReader(const FetchLimits& limits);
    ~HttpReader();
    HttpReader(const HttpReader&) = delete;
    HttpReader& operator=(const HttpReader&) = delete;

    /// What a server of status 200 to 299 sends; an error for all else, and once `watch` is cancelled.
    [[nodiscard]] Result<QByteArray> read(const QUrl& url, const Cancellation::Watch& watch);
    /// Has read() look at its watch now.
    void wake();

private:
    class Handles;
    std::unique_ptr<Handles> m_handles;
    FetchLimits m_limits;
};

} // namespace kestro
