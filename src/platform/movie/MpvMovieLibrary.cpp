#include "platform/movie/MpvMovieLibrary.h"

#include "platform/base/FileURL.h"
#include "platform/base/PostTo.h"
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
    postTo(*application, [movie] { delete movie; });
}

std::shared_ptr<QTMovie> MpvMovieLibrary::movieWithURL(const QUrl& url)
{
    const bool isRemote = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    const bool mayBeMovie = localPath(url).has_value() || (isRemote && !url.host().isEmpty());
    if (!mayBeMovie) return nullptr;
    return {new MpvMovie(url, m_options), deleteOnMainThread};
}

} // namespace kestro
