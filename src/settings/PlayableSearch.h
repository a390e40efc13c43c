#pragma once

#include <QList>
#include <QUrl>

#include <functional>
#include <memory>

namespace kestro {

class DetachedTask;

/// Looks for the first entry of a list that can be played: a file that is there, or anything that is no file.
/// A disk may take its time, or never answer, so each file is looked at on a thread, and one that is not
/// found within two seconds counts as missing. Owned by whoever searches. Main thread.
class PlayableSearch final {
public:
    /// `wake` is called on the event loop when step() would get further.
    PlayableSearch(QList<QUrl> list, std::function<void()> wake);
    ~PlayableSearch();

    /// Goes on with the search; does not wait.
    void step();
    /// Whether the search has come to its end.
    [[nodiscard]] bool isOver() const { return isMovieExists() || m_next >= m_list.size(); }
    /// Whether an entry was found that can be played.
    [[nodiscard]] bool isMovieExists() const { return m_index >= 0; }
    /// Its index in the list; -1 while there is none.
    [[nodiscard]] int index() const { return m_index; }

private:
    void look(const QUrl& url);
    void looked(bool isThere);

    const QList<QUrl> m_list;
    std::function<void()> m_wake;
    std::unique_ptr<DetachedTask> m_task; ///< a look at the next entry, while there is one
    qsizetype m_next = 0;
    int m_index = -1;
};

} // namespace kestro
