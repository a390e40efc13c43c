#pragma once

#include "settings/FolderEntry.h"
#include "settings/MovieFolders.h"

#include <memory>
#include <vector>

namespace kestro {

class Random;

/// Has folders and playlist files looked at and watched, each by a process of its own, as long as somebody
/// follows them. Owned by the program; outlives who follows. Main thread, of an application.
class WatchedFolders final : public MovieFolders {
public:
    /// `random` shuffles folders that are to be shuffled.
    explicit WatchedFolders(Random& random)
        : m_random(random)
    {
    }

    [[nodiscard]] std::shared_ptr<const FolderMovies> follow(const FolderEntry& entry,
                                                             bool isHurried) override;

private:
    struct Followed {
        FolderEntry entry;
        bool isHurried;
        std::weak_ptr<const FolderMovies> movies;
    };
    [[nodiscard]] std::shared_ptr<const FolderMovies> begin(const FolderEntry& entry, bool isHurried);
    [[nodiscard]] QList<QUrl> inOrder(QList<QUrl> movies, FolderEntry::Order order);

    Random& m_random;
    std::vector<Followed> m_followed;
};

} // namespace kestro
