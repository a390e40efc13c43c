#pragma once

#include "engine/EntryOpener.h"
#include "engine/MoviePick.h"

#include <QList>
#include <QUrl>

#include <memory>
#include <optional>

namespace kestro {

/// Decides which entry of the playlist plays next: in order or at random, from where the last run stopped,
/// past what cannot be opened. Owned by the engine, one per view. Main thread.
class MovieSequencer final {
public:
    explicit MovieSequencer(const EntrySources& sources);

    /// A pick of the next entry, which the caller steps. It finds nothing when no entry can be opened. It
    /// must not outlive the sequencer; one at a time. `resumed` is the name of the movie at which to begin,
    /// on the first pick of a run; `isFirst` marks that pick, which may repeat the entry that plays.
    [[nodiscard]] std::unique_ptr<MoviePick> newNextMovie(bool isFirst, const std::optional<QString>& resumed,
                                                          MoviePick::Options options);

    /// What opens the entries, and remembers those that failed.
    [[nodiscard]] EntryOpener& entries() { return m_entries; }
    [[nodiscard]] const std::shared_ptr<StillMovie>& cacheMovie() const { return m_entries.cacheMovie(); }

private:
    [[nodiscard]] std::unique_ptr<EntryOrder> order(bool isFirst, const std::optional<QString>& resumed);

    EntrySources m_sources;
    EntryOpener m_entries;
    QList<QUrl> m_randomList;
};

} // namespace kestro
