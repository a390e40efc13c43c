#include "platform/network/HttpTransfer.h"

#include "platform/base/Reasons.h"
#include "platform/network/FetchSink.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

constexpr int longestWait = 1000;

HttpTransfer& transferOf(void* self)
{
    return *static_cast<HttpTransfer*>(self);
}

} // namespace

FetchFault overLimit(const QString& message)
{
    return {FetchFault::Kind::OverLimit, message};
}

HttpTransfer::HttpTransfer(CURL* easy, const FetchLimits& limits, const Cancellation::Watch& watch,
                           FetchSink* sink)
    : m_easy(easy)
    , m_limits(limits)
    , m_watch(watch)
    , m_sink(sink)
{
    curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, m_words.data());
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &onBody);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &onHeader);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(easy, CURLOPT_PREREQFUNCTION, &onConnected);
    curl_easy_setopt(easy, CURLOPT_PREREQDATA, this);
    curl_easy_setopt(easy, CURLOPT_XFERINFOFUNCTION, &onProgress);
    curl_easy_setopt(easy, CURLOPT_XFERINFODATA, this);
    curl_easy_setopt(easy, CURLOPT_NOPROGRESS, 0L);
}

HttpTransfer::~HttpTransfer()
{
    curl_easy_setopt(m_easy, CURLOPT_ERRORBUFFER, nullptr);
    curl_easy_setopt(m_easy, CURLOPT_NOPROGRESS, 1L);
}

size_t HttpTransfer::onBody(char* bytes, size_t size, size_t count, void* self)
{
    HttpTransfer& transfer = transferOf(self);
    const auto length = static_cast<qsizetype>(size) * static_cast<qsizetype>(count);
    transfer.m_bodyBytes += length;
    transfer.m_isTooLarge = transfer.m_bodyBytes > transfer.m_limits.bytes;
    if (transfer.m_isTooLarge || !transfer.handOn({bytes, length})) return CURL_WRITEFUNC_ERROR;
    return size * count;
}

// A sink gets nothing of what a server says of an error.
bool HttpTransfer::handOn(QByteArrayView bytes)
{
    if (!m_sink) {
        m_body.append(bytes);
        return true;
    }
    curl_off_t length = -1;
    curl_easy_getinfo(m_easy, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    if (!hasGoodStatus() || (!std::exchange(m_hasBegun, true) && !m_sink->begin(length))) return false;
    return m_sink->take(bytes);
}

size_t HttpTransfer::onHeader(char*, size_t size, size_t count, void* self)
{
    HttpTransfer& transfer = transferOf(self);
    transfer.m_silentSince = Clock::now();
    transfer.m_headerBytes += static_cast<qint64>(size * count);
    transfer.m_isTooLarge = transfer.m_headerBytes > transfer.m_limits.bytes;
    return transfer.m_isTooLarge ? CURL_WRITEFUNC_ERROR : size * count;
}

int HttpTransfer::onConnected(void* self, char*, char*, int, int)
{
    transferOf(self).m_silentSince = Clock::now();
    return CURL_PREREQFUNC_OK;
}

// Counts what a redirecting server sends as well, of which onBody hears nothing.
int HttpTransfer::onProgress(void* self, curl_off_t, curl_off_t downloaded, curl_off_t, curl_off_t)
{
    HttpTransfer& transfer = transferOf(self);
    if (downloaded != transfer.m_downloaded) transfer.m_silentSince = Clock::now();
    transfer.m_downloaded = downloaded;
    if (downloaded > transfer.m_limits.bytes) transfer.m_isTooLarge = true;
    return transfer.m_isTooLarge || transfer.m_watch.isCancelled();
}

bool HttpTransfer::isTooSilent() const
{
    return m_silentSince &&
           Clock::now() - *m_silentSince >= std::chrono::duration<double>(m_limits.silenceSeconds);
}

bool HttpTransfer::isTooLong() const
{
    return m_limits.seconds > 0 && Clock::now() - m_begun >= std::chrono::duration<double>(m_limits.seconds);
}

qint64 HttpTransfer::received() const
{
    return m_headerBytes + std::max<qint64>(m_downloaded, m_bodyBytes);
}

int HttpTransfer::patience() const
{
    return static_cast<int>(std::clamp(m_limits.silenceSeconds * 250, 1.0, double(longestWait)));
}

int HttpTransfer::status() const
{
    long status = 0;
    curl_easy_getinfo(m_easy, CURLINFO_RESPONSE_CODE, &status);
    return static_cast<int>(status);
}

bool HttpTransfer::hasGoodStatus() const
{
    return status() >= 200 && status() < 300;
}

FetchResult HttpTransfer::result(CURLcode code)
{
    if (m_isTooLarge || code == CURLE_FILESIZE_EXCEEDED) return overLimit(tooLarge(m_limits.bytes));
    const bool isErrorPage = code == CURLE_WRITE_ERROR && !hasGoodStatus();
    if (code != CURLE_OK && !isErrorPage) {
        const auto words = QString::fromUtf8(m_words[0] != '\0' ? m_words.data() : curl_easy_strerror(code));
        return code == CURLE_TOO_MANY_REDIRECTS ? overLimit(words) : FetchFault{.message = words};
    }
    if (hasGoodStatus()) return m_body;
    return FetchFault{.message = QStringLiteral("the server answers with status %1").arg(status())};
}

} // namespace kestro
