#pragma once

#include "settings/FolderEntry.h"
#include "settings/MovieFolders.h"

#include <functional>
#include <vector>

namespace kestro {

/// The folders, and playlist files, among the entries of one playlist: what they hold, and whether that is
/// something else than when it was asked for last. Owned by the playlist. Main thread.
class PlaylistFolders final {
public:
    /// Where `folders` is null, folders hold nothing.
    explicit PlaylistFolders(MovieFolders* folders)
        : m_folders(folders)
    {
    }

    /// Follows these and no others. With `isHurried` all of a large one is wanted at once.
    void follow(const QList<QUrl>& entries, bool isHurried);
    /// What the entry's folder holds now, where it is followed; that is no news then.
    [[nodiscard]] QList<QUrl> moviesOf(const QUrl& entry);
    /// Whether the movies of a folder are not what they were.
    [[nodiscard]] bool hasNews() const;
    /// Whether nothing is known of a folder yet.
    [[nodiscard]] bool isWaiting() const;
    /// Whether this is the file of a movie in a folder, or named in a playlist file.
    [[nodiscard]] bool holds(const QUrl& movie) const;
    /// Has every change told.
    void setWhenNews(std::function<void()> whenNews) { m_whenNews = std::move(whenNews); }

private:
    struct Folder {
        FolderEntry entry;
        std::shared_ptr<const FolderMovies> movies;
        int seen = 0; ///< revision
    };

    [[nodiscard]] Folder begin(const FolderEntry& entry, bool isHurried);

    MovieFolders* m_folders;
    std::vector<Folder> m_followed;
    std::function<void()> m_whenNews;
    QObject m_here; ///< what hears of changes: with it, they are not told any more
};

} // namespace kestro
