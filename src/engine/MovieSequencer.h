#pragma once

#include "presentation/MovieContent.h"

#include <QList>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace kestro {

class MovieLibrary;
class Playlist;
class QTMovie;
class Random;
class Settings;
class StillMovie;

/// Decides which entry of the playlist plays next and opens it: in order or at random, from where the last
/// run stopped, past what cannot be opened. Owned by the engine, one per view. Main thread; between tries
/// that fail it lets the desktop go on, so it may be asked to stop in the middle of a pick.
class MovieSequencer final {
public:
    /// What the sequencer works with; all of it outlives the sequencer.
    struct Sources {
        Settings& settings;
        Playlist& playlist;
        MovieLibrary& movies;
        Random& random;
        bool isPreview = false;
        std::function<bool()> playsWebContent; ///< whether "SWF" entries can be shown now
    };

    /// `wait` lets the desktop go on for that many seconds; `searching` is told when a whole cycle through
    /// the list found nothing and the search goes on.
    MovieSequencer(const Sources& sources, std::function<void(double)> wait, std::function<void()> searching);

    /// Opens the next entry: a movie, or the address of web content; nothing when no entry can be opened, or
    /// after stop(). `isFirst` marks the first pick of a run, which resumes where the last run stopped and
    /// may repeat the entry that plays. In random order the search goes on, at last one try a second, until
    /// something opens.
    [[nodiscard]] MovieContent newNextMovie(bool isFirst);

    /// Ends a pick that is under way, and every later one, with nothing, until resume().
    void stop()
    {
        m_stopped = true;
        ++m_stops;
    }
    void resume() { m_stopped = false; }
    [[nodiscard]] bool isStopped() const { return m_stopped; }
    /// How often it was stopped. A pick that was under way when that changed is over, even after resume().
    [[nodiscard]] int stops() const { return m_stops; }

    /// Logs and records a movie that could not be loaded, at once or later.
    void recordFailure(const QUrl& url);

    /// A second copy of the movie that was opened last, for stills alone; null unless movies fade out. Shared
    /// with the capture thread.
    [[nodiscard]] const std::shared_ptr<StillMovie>& cacheMovie() const { return m_cacheMovie; }

private:
    /// One pick in random order.
    struct Search {
        QList<QUrl> list; ///< as it was when the pick began
        int stops = 0;    ///< likewise
        bool isFirst = false;
        bool guardFired = false; ///< the playing entry was refused once
        bool openedAny = false;  ///< in this cycle
        double pause = 0;        ///< seconds after a try that failed
    };

    [[nodiscard]] MovieContent openEntry(const QUrl& url);
    [[nodiscard]] MovieContent nextAtRandom(bool isFirst);
    [[nodiscard]] MovieContent drawCycle(Search& search);
    [[nodiscard]] bool refusesRepeat(Search& search, int position);
    [[nodiscard]] MovieContent nextInOrder(bool isFirst);
    [[nodiscard]] std::optional<qsizetype> resumeIndex(const QList<QUrl>& list, bool isFirst) const;
    void resumePosition(const MovieContent& content);
    void dropListWithTrailers();
    [[nodiscard]] bool breathe(double seconds, int stops);
    [[nodiscard]] bool isOver(int stops) const { return m_stopped || m_stops != stops; }

    Sources m_sources;
    std::function<void(double)> m_wait;
    std::function<void()> m_searching;
    QList<QUrl> m_randomList;
    std::shared_ptr<StillMovie> m_cacheMovie;
    bool m_stopped = false;
    int m_stops = 0;
};

} // namespace kestro
