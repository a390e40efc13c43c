#include "config_ui/DroppedMovies.h"

#include "platform/base/FileURL.h"

#include <QDirIterator>
#include <QMimeData>
#include <QMimeDatabase>
#include <QUrl>

#include <algorithm>

namespace kestro {

namespace {

constexpr int mostNames = 100'000; ///< of a folder that are looked at

bool isCalledAsMoviesAre(const QString& path)
{
    static const QMimeDatabase kinds;
    const QMimeType kind = kinds.mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    return kind.name().startsWith(QStringLiteral("video/"));
}

QStringList moviesBelow(const QString& folder)
{
    QStringList movies;
    QDirIterator names(folder, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    for (int looked = 0; looked < mostNames && names.hasNext(); ++looked)
        if (const QString path = names.next(); isCalledAsMoviesAre(path)) movies.append(path);
    std::sort(movies.begin(), movies.end());
    return movies;
}

} // namespace

bool holdsFiles(const QMimeData& dropped)
{
    const QList<QUrl> urls = dropped.urls();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) {
        const QFileInfo file(localPath(url).value_or(QString()));
        return file.isFile() || file.isDir();
    });
}

QStringList droppedMovies(const QList<QUrl>& urls)
{
    QStringList movies;
    for (const QUrl& url : urls) {
        const QString path = localPath(url).value_or(QString());
        if (QFileInfo(path).isFile()) movies.append(path);
        if (QFileInfo(path).isDir()) movies.append(moviesBelow(path));
    }
    return movies;
}

} // namespace kestro
