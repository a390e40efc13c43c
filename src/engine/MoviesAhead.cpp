#include "engine/MoviesAhead.h"

#include "platform/base/KeptMovies.h"

#include <QSet>

#include <algorithm>

namespace kestro {

QList<QUrl> MoviesAhead::after(const QUrl& played, const QList<QUrl>& list, const IsTrailer& isTrailer)
{
    read(list);
    QList<QUrl> ahead = m_remote;
    const auto isOther = [&played](const QUrl& movie) { return movie != played; };
    if (const auto now = std::find(ahead.begin(), ahead.end(), played); now != ahead.end())
        std::rotate(ahead.begin(), now, ahead.end());
    // Rotated, they are no longer in the order of their site.
    QList<QUrl> wanted;
    std::ranges::copy_if(m_remote, std::back_inserter(wanted), isTrailer);
    std::ranges::remove_copy_if(ahead, std::back_inserter(wanted), isTrailer);
    std::ranges::stable_partition(wanted, isOther);
    wanted.resize(std::min(wanted.size(), most));
    return wanted;
}

// A long list is kept from one movie to the next, and is then the very same.
void MoviesAhead::read(const QList<QUrl>& list)
{
    if (m_list.constData() == list.constData() && m_list.size() == list.size()) return;
    m_list = list;
    m_remote.clear();
    QSet<QUrl> seen;
    for (const QUrl& movie : list) {
        if (movie.isLocalFile() || !canBeKept(movie) || seen.contains(movie)) continue;
        seen.insert(movie);
        m_remote.append(movie);
    }
}

} // namespace kestro
