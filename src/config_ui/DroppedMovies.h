#pragma once

#include "platform/base/FileWalk.h"

#include <QStringList>

class QMimeData;
class QUrl;

namespace kestro {

class ConfigPanels;

/// Whether what is dropped names files or folders of this machine. No disk is asked: who drags waits.
[[nodiscard]] bool holdsFiles(const QMimeData& dropped);

/// Looks for movies in what is dropped, while the person goes on, or gives up: the files, whatever they are,
/// and below folders what is called as movies are. Owned by the sheet's model; main thread.
class DroppedMovies final {
public:
    /// `add` takes what was found, in the order in which it was dropped, that of each folder sorted. `panels`
    /// show what is waited for, and say what was not found; `longest` is how long a disk may take.
    DroppedMovies(ConfigPanels& panels, std::function<void(const QStringList& files)> add,
                  std::chrono::milliseconds longest = std::chrono::minutes(1));

    /// What is dropped while something else is looked for is looked for with it.
    void look(const QList<QUrl>& dropped);
    [[nodiscard]] bool isLooking() const { return m_walk != nullptr; }
    /// Does `rest` when what is looked for now was added; not where something is amiss with it, which the
    /// person is told, nor when they give up.
    void whenAdded(std::function<void()> rest) { m_rest = std::move(rest); }
    void giveUp();

private:
    void take(const FileWalk::Found& found);

    ConfigPanels& m_panels;
    std::function<void(const QStringList& files)> m_add;
    std::chrono::milliseconds m_longest;
    QStringList m_paths; ///< that are looked at
    std::unique_ptr<FileWalk> m_walk;
    std::function<void()> m_rest;
};

} // namespace kestro
