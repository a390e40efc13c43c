#pragma once

#include "platform/network/Cancellation.h"
#include "platform/network/Fetch.h"

#include <array>
#include <chrono>
#include <curl/curl.h>
#include <optional>

namespace kestro {

class FetchSink;

/// It would cost more than a fetch may.
[[nodiscard]] FetchFault overLimit(const QString& message);

/// One transfer: what libcurl calls back while it runs, and what comes of it. Lives on the stack of
/// HttpReader::read, on its thread. Tested by CurlFetchHttpTest.
class HttpTransfer final {
public:
    /// Has `easy` report here, until this one's end. What comes goes to `sink`, where there is one.
    HttpTransfer(CURL* easy, const FetchLimits& limits, const Cancellation::Watch& watch,
                 FetchSink* sink = nullptr);
    ~HttpTransfer();
    HttpTransfer(const HttpTransfer&) = delete;
    HttpTransfer& operator=(const HttpTransfer&) = delete;

    /// Whether the server has kept silent for too long.
    [[nodiscard]] bool isTooSilent() const;
    /// Whether it goes on for longer than a fetch may.
    [[nodiscard]] bool isTooLong() const;
    /// The bytes that came, heads and redirects with them.
    [[nodiscard]] qint64 received() const;
    /// Milliseconds until something has to be looked at at the latest.
    [[nodiscard]] int patience() const;
    /// The bytes that came, or why there are none, once libcurl has ended with `code`.
    [[nodiscard]] FetchResult result(CURLcode code);

private:
    using Clock = std::chrono::steady_clock;

    static size_t onBody(char* bytes, size_t size, size_t count, void* self);
    static size_t onHeader(char* bytes, size_t size, size_t count, void* self);
    static int onConnected(void* self, char*, char*, int, int);
    static int onProgress(void* self, curl_off_t, curl_off_t downloaded, curl_off_t, curl_off_t);
    [[nodiscard]] bool handOn(QByteArrayView bytes);
    [[nodiscard]] int status() const;
    [[nodiscard]] bool hasGoodStatus() const;

    CURL* m_easy;
    const FetchLimits& m_limits;
    const Cancellation::Watch& m_watch;
    FetchSink* m_sink;
    bool m_hasBegun = false; ///< the sink was told
    QByteArray m_body;
    qint64 m_bodyBytes = 0;
    qint64 m_headerBytes = 0;
    curl_off_t m_downloaded = 0;
    const Clock::time_point m_begun = Clock::now();
    std::optional<Clock::time_point> m_silentSince; ///< nothing while the server is looked for
    bool m_isTooLarge = false;
    std::array<char, CURL_ERROR_SIZE> m_words = {};
};

} // namespace kestro
