#include "config_ui/MovieNames.h"

#include <QMimeDatabase>

#include <algorithm>

namespace kestro {

namespace {

bool isCalledAsMoviesAre(const QString& path)
{
    static const QMimeDatabase kinds;
    const QList<QMimeType> fitting = kinds.mimeTypesForFileName(path);
    return std::any_of(fitting.begin(), fitting.end(), [](const QMimeType& kind) {
        return kind.name().startsWith(QStringLiteral("video/"));
    });
}

} // namespace

QStringList calledAsMovies(QStringList files)
{
    files.removeIf([](const QString& file) { return !isCalledAsMoviesAre(file); });
    files.sort();
    return files;
}

} // namespace kestro
