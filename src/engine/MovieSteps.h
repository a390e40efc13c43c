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

    /// Another movie is asked for; the previous one only where there was one.
    void ask(MovieStep step);
    [[nodiscard]] bool isAsked() const { return m_asked.has_value(); }
    /// What was asked for, which is done now; nothing where nothing was.
    [[nodiscard]] std::optional<MovieStep> take() { return std::exchange(m_asked, std::nullopt); }

    /// The movie or the page of that address shows from now on.
    void shows(const QUrl& entry);
    /// The order of the movies that were shown before this one, back from it. Those that the playlist holds
    /// no more are left out. `inOrder`: the playlist is played in its order, and goes on behind what is
    /// taken. It must not outlive this.
    [[nodiscard]] std::unique_ptr<EntryOrder> wayBack(Playlist& playlist, bool inOrder);

private:
    std::optional<MovieStep> m_asked;
    QList<QUrl> m_shown; ///< the last one shows now
};

} // namespace kestro
