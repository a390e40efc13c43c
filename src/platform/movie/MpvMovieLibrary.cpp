#include "platform/movie/MpvMovieLibrary.h"

#include "platform/movie/MovieProbe.h"
#include "platform/movie/MpvMovie.h"

#include <QCoreApplication>
#include <QThread>
#include <QUrl>

namespace kestro {

MpvMovieLibrary::MpvMovieLibrary(const MpvMovieOptions& options)
    : m_options(options)
{
}

/// The capture thread may be the last to hold a movie.
static void deleteOnMainThread(QTMovie* movie)
{
    QCoreApplication* const application = QCoreApplication::instance();
    if (!application || QThread::currentThread() == application->thread()) {
        delete movie;
        return;
    }
    QMetaObject::invokeMethod(
        application, [movie] { delete movie; }, Qt::QueuedConnection);
}

static std::shared_ptr<QTMovie> openLocal(const QUrl& url, const MpvMovieOptions& options)
{
    const auto facts = probeMovie(url.toLocalFile());
    if (!facts) return nullptr;
    return {new MpvMovie(url, facts.value(), options), deleteOnMainThread};
}

std::shared_ptr<QTMovie> MpvMovieLibrary::movieWithURL(const QUrl& url)
{
    if (url.isLocalFile()) return openLocal(url, m_options);
    const bool isRemote = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!isRemote || url.host().isEmpty()) return nullptr;
    return {new MpvMovie(url, std::nullopt, m_options), deleteOnMainThread};
}

} // namespace kestro
