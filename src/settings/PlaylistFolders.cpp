#include "settings/PlaylistFolders.h"

#include "platform/base/FileURL.h"

#include <algorithm>
#include <utility>

namespace kestro {

// What is followed already goes on being so: what is known of it stays known.
void PlaylistFolders::follow(const QList<QUrl>& entries, bool isHurried)
{
    if (m_folders == nullptr) return;
    std::vector<Folder> followed;
    for (const QUrl& url : entries) {
        const auto entry = folderEntry(url);
        const auto isIt = [&entry](const Folder& each) { return each.entry == *entry; };
        if (!entry || std::any_of(followed.begin(), followed.end(), isIt)) continue;
        const auto before = std::find_if(m_followed.begin(), m_followed.end(), isIt);
        followed.push_back(before == m_followed.end() ? begin(*entry, isHurried) : *before);
    }
    m_followed = std::move(followed);
}

PlaylistFolders::Folder PlaylistFolders::begin(const FolderEntry& entry, bool isHurried)
{
    auto movies = m_folders->follow(entry, isHurried);
    QObject::connect(movies.get(), &FolderMovies::changed, &m_here, [this] {
        if (m_whenNews) m_whenNews();
    });
    return {entry, std::move(movies)};
}

QList<QUrl> PlaylistFolders::moviesOf(const QUrl& entry)
{
    const auto wanted = folderEntry(entry);
    for (Folder& each : m_followed) {
        if (each.entry != wanted) continue;
        each.seen = each.movies->revision();
        return each.movies->movies();
    }
    return {};
}

bool PlaylistFolders::hasNews() const
{
    return std::any_of(m_followed.begin(), m_followed.end(),
                       [](const Folder& each) { return each.seen != each.movies->revision(); });
}

bool PlaylistFolders::isWaiting() const
{
    return std::any_of(m_followed.begin(), m_followed.end(),
                       [](const Folder& each) { return each.movies->revision() == 0; });
}

bool PlaylistFolders::holds(const QUrl& movie) const
{
    if (m_followed.empty()) return false;
    const auto path = localPath(movie);
    return std::any_of(m_followed.begin(), m_followed.end(), [&](const Folder& each) {
        if (each.entry.isList) return each.movies->movies().contains(movie);
        const QString& folder = each.entry.path;
        return path && path->startsWith(folder.endsWith(u'/') ? folder : folder + u'/');
    });
}

} // namespace kestro
