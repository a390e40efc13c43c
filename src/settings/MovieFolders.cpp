#include "settings/MovieFolders.h"

#include <utility>

namespace kestro {

void FolderMovies::take(QList<QUrl> movies, bool isWhole)
{
    m_movies = std::move(movies);
    m_isWhole = isWhole;
    ++m_revision;
    Q_EMIT changed();
}

} // namespace kestro
