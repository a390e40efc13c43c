#include "platform/network/Download.h"

#include "platform/base/URLKind.h"
#include "platform/network/HttpReader.h"

#include <QList>
#include <QUrl>

#include <algorithm>

namespace kestro {

namespace {

constexpr int notModified = 304;
constexpr qsizetype longestName = 256;

/// What a server said goes back to it: nothing but one short line of plain letters.
bool isPlain(const QByteArray& text)
{
    const auto isPrintable = [](char letter) { return letter >= 0x20 && letter < 0x7f; };
    return !text.isEmpty() && text.size() <= longestName && std::ranges::all_of(text, isPrintable);
}

QList<QByteArray> conditions(const RemoteVersion& known)
{
    QList<QByteArray> headers;
    if (isPlain(known.tag)) headers.append("If-None-Match: " + known.tag);
    if (isPlain(known.modified)) headers.append("If-Modified-Since: " + known.modified);
    return headers;
}

QByteArray plain(const QByteArray& text)
{
    return isPlain(text) ? text : QByteArray();
}

} // namespace

Download::Download(const FetchLimits& limits)
    : m_limits(limits)
    , m_http(std::make_unique<HttpReader>(limits))
{
}

Download::~Download() = default;

Result<Download::Answer, FetchFault> Download::run(const QUrl& url, const RemoteVersion& known,
                                                   FetchSink& sink)
{
    const Cancellation::Watch watch(m_cancellation);
    const auto cancelled = FetchFault{FetchFault::Kind::Cancelled, QStringLiteral("cancelled")};
    if (watch.isCancelled()) return cancelled;
    if (!isWebURL(url)) return FetchFault{.message = QStringLiteral("neither http nor https")};
    const auto headers = conditions(known);
    m_http->setConditions(headers);
    const auto read = m_http->read(url, watch, &sink);
    if (watch.isCancelled()) return cancelled;
    if (!read && !headers.isEmpty() && m_http->status() == notModified) return Answer{false, known};
    if (!read) return FetchFault{read.failure().kind, read.failure().message.simplified()};
    return Answer{true, {plain(m_http->header("ETag")), plain(m_http->header("Last-Modified"))}};
}

void Download::cancel()
{
    m_cancellation.cancel();
    m_http->wake();
}

void Download::allow()
{
    m_cancellation.allow();
}

} // namespace kestro
