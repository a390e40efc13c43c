#pragma once

#include "platform/network/Cancellation.h"
#include "platform/network/Fetch.h"

#include <memory>

namespace kestro {

class HttpReader;

/// Fetches with libcurl, and files without. Keeps its connections open from one fetch to the next. Owned by
/// who crawls; fetch() on one thread at a time, cancel() and allow() on any.
class CurlFetch final : public Fetch {
public:
    explicit CurlFetch(FetchLimits limits = {});
    ~CurlFetch() override;

    FetchResult fetch(const QUrl& url) override;
    void cancel() override;
    void allow() override;
    [[nodiscard]] qint64 received() const override;

private:
    FetchResult read(const QUrl& url, const Cancellation::Watch& watch);

    FetchLimits m_limits;
    Cancellation m_cancellation;
    std::unique_ptr<HttpReader> m_http;
    qint64 m_fileBytes = 0;
};

} // namespace kestro
