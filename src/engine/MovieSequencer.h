#pragma once

#include "engine/EntryOpener.h"
#include "engine/MoviePick.h"

#include <QList>
#include <QUrl>

#include <memory>
#include <optional>

namespace kestro {

class MovieSteps;

/// Decides which entry of the playlist plays next: in order or at random, from where the last run stopped,
/// past what cannot be opened. Owned by the engine, one per view. Main thread.
class MovieSequencer final {
public:
    explicit MovieSequencer(const EntrySources& sources);

    /// A pick of the next entry, which the caller steps. It finds nothing when no entry can be opened. It
    /// must not outlive the sequencer; one at a time. What is not in its time is only taken where nothing
    /// else can be played. `played` is the index of the entry that played last, which random order refuses
    /// once; `resumed` the name of the movie at which to begin, if any.
    [[nodiscard]] std::unique_ptr<MoviePick> newNextMovie(std::optional<int> played,
                                                          const std::optional<QString>& resumed,
                                                          MoviePick::Options options);
    /// A pick of one that was shown before, likewise; `steps` outlives it.
    [[nodiscard]] std::unique_ptr<MoviePick> previousMovie(MovieSteps& steps, MoviePick::Options options);

    /// Whether other movies are in their time by now than when the last pick began.
    [[nodiscard]] bool isTimeForOthers();
    /// When what the last pick passed over may be looked at again, in seconds of the clock; nothing where it
    /// came to every entry.
    [[nodiscard]] std::optional<double> nextLook() const;

    /// The playlist holds something else than `before`, in the middle of a cycle: what was drawn in it is
    /// not drawn again before the next one. No pick is under way.
    void takeNews(const QList<QUrl>& before);

    /// What opens the entries, and remembers those that failed.
    [[nodiscard]] EntryOpener& entries() { return m_entries; }
    [[nodiscard]] const std::shared_ptr<StillMovie>& cacheMovie() const { return m_entries.cacheMovie(); }

private:
    [[nodiscard]] bool remembers() const;
    [[nodiscard]] std::unique_ptr<EntryOrder>
    order(std::optional<int> played, const std::optional<QString>& resumed, const MoviesInTime& inTime);

    EntrySources m_sources;
    EntryOpener m_entries;
    QList<QUrl> m_randomList;
    MoviesInTime m_inTime; ///< when the last pick began
};

} // namespace kestro
