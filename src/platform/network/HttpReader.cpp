#include "platform/network/HttpReader.h"

#include "platform/network/HttpTransfer.h"
#include "platform/network/Site.h"

#include <cmath>
#include <curl/curl.h>
#include <sys/socket.h>

namespace kestro {

namespace {

/// Sets libcurl up once for the process; it is never taken down, as others may use it too. Answers whether it
/// is.
bool startedCurl()
{
    static const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT);
    return code == CURLE_OK;
}

long milliseconds(double seconds)
{
    return std::max(1L, std::lround(seconds * 1000));
}

} // namespace

/// libcurl's handles: one transfer, used over and over, and what runs it and keeps the connections.
class HttpReader::Handles final {
public:
    Handles(const FetchLimits& limits, Reach reach)
    {
        if (easy) setUp(limits);
        if (easy && reach == Reach::OneSite) stayOnSite();
    }
    ~Handles()
    {
        curl_easy_cleanup(easy);
        curl_multi_cleanup(multi);
        curl_slist_free_all(headers);
        curl_slist_free_all(knownHosts);
    }
    Handles(const Handles&) = delete;
    Handles& operator=(const Handles&) = delete;

    void useHeaders(const QList<QByteArray>& more)
    {
        curl_slist_free_all(headers);
        headers = curl_slist_append(nullptr, "Accept-Encoding: identity");
        for (const QByteArray& each : more)
            headers = curl_slist_append(headers, each.constData());
        curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers);
    }

    CURL* easy = startedCurl() ? curl_easy_init() : nullptr;
    CURLM* multi = curl_multi_init();
    curl_slist* knownHosts = nullptr;
    bool mayBePrivate = true; ///< the address of what is read now
    bool isRefused = false;   ///< one was not

private:
    // Looks at the very address that is connected to: what a name led to before says nothing about it.
    static curl_socket_t open(void* self, curlsocktype, curl_sockaddr* address)
    {
        auto& handles = *static_cast<Handles*>(self);
        if (!handles.mayBePrivate && !isPublicAddress(address->addr)) {
            handles.isRefused = true;
            return CURL_SOCKET_BAD;
        }
        return socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
    }

    void stayOnSite()
    {
        curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 0L);
        curl_easy_setopt(easy, CURLOPT_PROXY, "");
        curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, &Handles::open);
        curl_easy_setopt(easy, CURLOPT_OPENSOCKETDATA, this);
    }

    void setUp(const FetchLimits& limits)
    {
        curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
        // A search for a server's address that hangs is left behind, not waited for.
        curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
        curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
        curl_easy_setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
        curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 1L);
        curl_easy_setopt(easy, CURLOPT_MAXREDIRS, static_cast<long>(limits.redirects));
        curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, milliseconds(limits.connectSeconds));
        curl_easy_setopt(easy, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(limits.bytes));
        curl_easy_setopt(easy, CURLOPT_MAX_RECV_SPEED_LARGE, static_cast<curl_off_t>(limits.bytesPerSecond));
        useHeaders({});
        curl_easy_setopt(easy, CURLOPT_USERAGENT, "Kestro");
    }

    curl_slist* headers = nullptr;
};

namespace {

/// A transfer among those that a multi handle runs, while this lives.
class Running final {
public:
    Running(CURLM* multi, CURL* easy)
        : m_multi(multi)
        , m_easy(easy)
    {
        curl_multi_add_handle(multi, easy);
    }
    ~Running() { curl_multi_remove_handle(m_multi, m_easy); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    /// How the transfer ended, once it has.
    [[nodiscard]] CURLcode code() const
    {
        int left = 0;
        while (const CURLMsg* message = curl_multi_info_read(m_multi, &left))
            if (message->msg == CURLMSG_DONE && message->easy_handle == m_easy) return message->data.result;
        return CURLE_FAILED_INIT;
    }

private:
    CURLM* m_multi;
    CURL* m_easy;
};

} // namespace

HttpReader::HttpReader(const FetchLimits& limits, Reach reach)
    : m_handles(std::make_unique<Handles>(limits, reach))
    , m_limits(limits)
{
}

HttpReader::~HttpReader() = default;

FetchResult HttpReader::read(const QUrl& url, const Cancellation::Watch& watch, FetchSink* sink)
{
    if (!m_handles->easy || !m_handles->multi)
        return FetchFault{.message = QStringLiteral("libcurl does not start")};
    m_handles->mayBePrivate = isOwnHost(url.host());
    m_handles->isRefused = false;
    HttpTransfer transfer(m_handles->easy, m_limits, watch, sink);
    curl_easy_setopt(m_handles->easy, CURLOPT_URL, url.toEncoded(QUrl::RemoveFragment).constData());
    auto result = run(transfer, watch);
    m_received += transfer.received();
    return result;
}

FetchResult HttpReader::run(HttpTransfer& transfer, const Cancellation::Watch& watch)
{
    const Running running(m_handles->multi, m_handles->easy);
    for (int count = 1;;) {
        if (curl_multi_perform(m_handles->multi, &count) != CURLM_OK) break;
        if (count == 0) break;
        if (watch.isCancelled()) return FetchFault{FetchFault::Kind::Cancelled, QStringLiteral("cancelled")};
        if (transfer.isTooSilent()) return overLimit(QStringLiteral("the server keeps silent"));
        if (transfer.isTooLong())
            return overLimit(QStringLiteral("not whole after %1 seconds").arg(m_limits.seconds));
        curl_multi_poll(m_handles->multi, nullptr, 0, transfer.patience(), nullptr);
    }
    const CURLcode code = running.code();
    if (code != CURLE_OK && m_handles->isRefused)
        return FetchFault{.message = QStringLiteral("its name leads to a private address")};
    return transfer.result(code);
}

void HttpReader::knowHost(const QString& host)
{
    m_handles->knownHosts = curl_slist_append(m_handles->knownHosts, host.toLatin1().constData());
    if (m_handles->easy) curl_easy_setopt(m_handles->easy, CURLOPT_RESOLVE, m_handles->knownHosts);
}

QUrl HttpReader::redirection() const
{
    char* next = nullptr;
    if (m_handles->easy) curl_easy_getinfo(m_handles->easy, CURLINFO_REDIRECT_URL, &next);
    return next ? QUrl::fromEncoded(next) : QUrl();
}

QString HttpReader::type() const
{
    char* type = nullptr;
    if (m_handles->easy) curl_easy_getinfo(m_handles->easy, CURLINFO_CONTENT_TYPE, &type);
    return QString::fromUtf8(type);
}

int HttpReader::status() const
{
    long status = 0;
    if (m_handles->easy) curl_easy_getinfo(m_handles->easy, CURLINFO_RESPONSE_CODE, &status);
    return static_cast<int>(status);
}

QByteArray HttpReader::header(const char* name) const
{
    curl_header* found = nullptr;
    const bool isThere =
        m_handles->easy && curl_easy_header(m_handles->easy, name, 0, CURLH_HEADER, -1, &found) == CURLHE_OK;
    return isThere ? QByteArray(found->value) : QByteArray();
}

void HttpReader::setConditions(const QList<QByteArray>& headers)
{
    if (m_handles->easy) m_handles->useHeaders(headers);
}

void HttpReader::wake()
{
    if (m_handles->multi) curl_multi_wakeup(m_handles->multi);
}

} // namespace kestro
