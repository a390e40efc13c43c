#include "settings/WatchedFolders.h"

#include "platform/base/Bounds.h"
#include "platform/base/FolderWatch.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"

#include <utility>

namespace kestro {

namespace {

/// The process that watches goes with what it tells of.
class WatchedFolder final : public FolderMovies {
public:
    std::unique_ptr<FolderWatch> watch;
};

} // namespace

std::shared_ptr<const FolderMovies> WatchedFolders::follow(const FolderEntry& entry, bool isHurried)
{
    std::erase_if(m_followed, [](const Followed& each) { return each.movies.expired(); });
    for (const Followed& each : m_followed)
        if (each.entry == entry && each.isHurried == isHurried) return each.movies.lock();
    auto movies = begin(entry, isHurried);
    m_followed.push_back({entry, isHurried, movies});
    return movies;
}

std::shared_ptr<const FolderMovies> WatchedFolders::begin(const FolderEntry& entry, bool isHurried)
{
    auto folder = std::make_shared<WatchedFolder>();
    if (m_followed.size() >= Bounds::watchedFolders) {
        logLine(QStringLiteral("More than %1 folders and lists are in the playlist: %2 is left out.")
                    .arg(Bounds::watchedFolders)
                    .arg(entry.path));
        folder->take({}, true);
        return folder;
    }
    MovieFolder wanted = movieFolder(entry);
    wanted.isHurried = isHurried;
    folder->watch = FolderWatch::start(
        wanted, [this, order = entry.order, &movies = *folder](QList<QUrl> found, bool isWhole) {
            movies.take(inOrder(std::move(found), order), isWhole);
        });
    if (!folder->watch) folder->take({}, true);
    return folder;
}

QList<QUrl> WatchedFolders::inOrder(QList<QUrl> movies, FolderEntry::Order order)
{
    if (order != FolderEntry::Order::Shuffled) return movies;
    for (qsizetype last = movies.size() - 1; last > 0; --last)
        movies.swapItemsAt(last, m_random.next() % (last + 1));
    return movies;
}

} // namespace kestro
