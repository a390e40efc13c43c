#pragma once

#include "engine/EntryOrder.h"
#include "platform/saver/SaverControl.h"

#include <memory>

namespace kestro {

/// Steps to the next or the previous movie out of turn: which one is asked for, and which movies were shown
/// before. Owned by the engine. Main thread.
class MovieSteps final {
public:
    static constexpr qsizetype longestWay = 100; ///< movies that it goes back

    /// Another movie is asked for, beside what was asked for before; the previous one only where there is
    /// one.
    void ask(MovieStep step);
    [[nodiscard]] bool isAsked() const { return m_asked != 0; }
    /// One step of what was asked for, which is done now; nothing where nothing was.
    [[nodiscard]] std::optional<MovieStep> take();
    /// Whether a step that was taken is not done yet: nothing shows for it so far.
    [[nodiscard]] bool isUnderWay() const { return m_underWay != 0; }
    /// Nothing is found for the step that was taken: what else was asked for is left as well.
    void giveUp() { m_asked = m_underWay = 0; }

    /// The movie or the page of that address shows from now on.
    void shows(const QUrl& entry);
    /// What shows now, or showed last; empty before anything did.
    [[nodiscard]] QUrl now() const { return m_shown.isEmpty() ? QUrl() : m_shown.last(); }
    /// The order of the movies that were shown before this one, back from it. Those that the playlist holds
    /// no more are left out. `inOrder`: the playlist is played in its order, and goes on behind what is
    /// taken. It must not outlive this.
    [[nodiscard]] std::unique_ptr<EntryOrder> wayBack(Playlist& playlist, bool inOrder);

private:
    int m_asked = 0;     ///< steps forward, less those back
    int m_underWay = 0;  ///< the one of them that was taken
    QList<QUrl> m_shown; ///< the last one shows now
};

} // namespace kestro
