#include "trailers/panel/TrailerDownload.h"

#include "platform/base/Log.h"
#include "platform/base/PostTo.h"
#include "platform/base/ShownURL.h"
#include "platform/base/URLKind.h"
#include "platform/network/CurlFetch.h"

#include <QLabel>
#include <QProgressDialog>
#include <QUrl>

#include <system_error>
#include <thread>

namespace kestro {

namespace {

// Names that come from a site are never taken for markup.
QLabel* plainLabel(const QString& text)
{
    auto* label = new QLabel(text); // the dialog takes it over
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

TrailerDownload::TrailerDownload(std::unique_ptr<Fetch> fetch)
    : m_fetch(std::move(fetch))
{
}

TrailerDownload::~TrailerDownload() = default;

std::optional<QByteArray> TrailerDownload::run(const QUrl& url, QWidget* parent)
{
    QProgressDialog progress(QString(), tr("Cancel"), 0, 0, parent);
    progress.setLabel(plainLabel(tr("Saving %1…").arg(lastPathComponent(url))));
    progress.setWindowTitle(tr("Save Trailer"));
    progress.setMinimumDuration(0);
    const auto contents = fetchBehind(progress, url);
    if (progress.wasCanceled()) return {};
    if (contents) return contents.value();
    logLine(QStringLiteral("Cannot save %1: %2").arg(shownURL(url), contents.failure().message));
    return {};
}

FetchResult TrailerDownload::fetchBehind(QProgressDialog& progress, const QUrl& url)
{
    FetchResult contents = FetchFault{.message = QStringLiteral("no thread")};
    const auto work = [&] {
        contents = m_fetch->fetch(url);
        postTo(progress, [&progress] { progress.accept(); });
    };
    try {
        std::thread worker(work);
        progress.exec();
        m_fetch->cancel(); // it has come to its end, or is to: the window went because of either
        worker.join();
    } catch (const std::system_error&) { // contents say it
    }
    return contents;
}

std::unique_ptr<Fetch> TrailerDownload::movieFetch()
{
    FetchLimits limits;
    limits.bytes = Bounds::savedMovieBytes; // it is kept in memory until it is whole
    limits.seconds = 0;                     // a person waits, who can give up
    return std::make_unique<CurlFetch>(limits);
}

} // namespace kestro
