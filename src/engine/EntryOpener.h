#pragma once

#include "presentation/MovieContent.h"
#include "settings/DayClock.h"

#include <QHash>
#include <QSet>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace kestro {

class Clock;
class MovieLibrary;
class NeverList;
class Playlist;
class QTMovie;
class Random;
class Settings;
class ShuffleRecord;
class StillMovie;

/// What opening entries works with; all of it outlives the opener.
struct EntrySources {
    Settings& settings;
    Playlist& playlist;
    MovieLibrary& movies;
    Random& random;
    const Clock& clock;
    bool isPreview = false;
    std::function<bool()> playsWebContent; ///< whether "SWF" entries can be shown now
    ShuffleRecord* shuffle = nullptr;      ///< of random order that remembers; null for one that does not
    const NeverList* never = nullptr;      ///< movies that are passed over; null for none
    DayClock day = DayClock();             ///< when it is time for what plays at times of the day
};

/// Opens entries of the playlist one by one, and knows which of them failed. A remote entry that failed
/// rests, and so does any that broke off after it was opened: it is passed over for half a minute, so that it
/// is not tried again at every turn of the list. Owned by the sequencer. Main thread.
class EntryOpener final {
public:
    explicit EntryOpener(EntrySources sources);

    /// A pick begins.
    void beginPick() { m_endOfRests.reset(); }
    /// When all entries that this pick passed over because they rest may be tried again, in seconds of the
    /// clock; nothing where every entry that it came to was tried.
    [[nodiscard]] std::optional<double> endOfRests() const { return m_endOfRests; }
    /// Begins to open the entry: a movie, which may still be loading, or the address of web content. Nothing,
    /// logged and recorded as the reason asks for, where it cannot be played.
    [[nodiscard]] MovieContent open(const QUrl& url);
    /// The entry opened and is to be played.
    void opened(const MovieContent& content);
    /// Logs and records a movie that could not be loaded. What lies in a folder that is an entry may be
    /// anything, and is passed over quietly.
    void recordFailure(const QUrl& url);
    /// The same for one that was opened and broke off.
    void recordLateFailure(const QUrl& url);

    /// Every entry is asked again, from now on.
    void forgetFailures();
    /// The same where a whole round failed, which tells nothing of single entries: trailers that failed in it
    /// come back into the list. What fails again is not logged once more until something opened.
    void beginRetry();

    /// A copy of the movie that opened last, for stills alone; null where movies leave no pictures. Shared
    /// with the capture thread.
    [[nodiscard]] const std::shared_ptr<StillMovie>& cacheMovie() const { return m_cacheMovie; }
    void dropCacheMovie() { m_cacheMovie.reset(); }

private:
    [[nodiscard]] bool passesOver(const QUrl& url);
    [[nodiscard]] bool leavesPictures() const;

    EntrySources m_sources;
    QHash<QUrl, double> m_failedAt; ///< clock time of the last failure of each entry that rests
    std::optional<double> m_endOfRests;
    QSet<QUrl> m_logged; ///< entries that failed before
    bool m_isRetry = false;
    std::shared_ptr<StillMovie> m_cacheMovie;
};

} // namespace kestro
