#include "config_ui/DroppedMovies.h"

#include "config_ui/ConfigPanels.h"
#include "config_ui/MovieNames.h"
#include "platform/base/FileURL.h"

#include <QCoreApplication>
#include <QMimeData>
#include <QUrl>

#include <utility>

namespace kestro {

namespace {

/// Of the files that are at `path` or below it.
QStringList movies(const QString& path, const QStringList& files)
{
    return files == QStringList{path} ? files : calledAsMovies(files);
}

QStringList pathsOf(const QList<QUrl>& urls)
{
    QStringList paths;
    for (const QUrl& url : urls)
        if (const auto path = localPath(url)) paths.append(*path);
    return paths;
}

} // namespace

bool holdsFiles(const QMimeData& dropped)
{
    return !pathsOf(dropped.urls()).isEmpty();
}

DroppedMovies::DroppedMovies(ConfigPanels& panels, std::function<void(const QStringList& files)> add,
                             std::chrono::milliseconds longest)
    : m_panels(panels)
    , m_add(std::move(add))
    , m_longest(longest)
{
}

void DroppedMovies::look(const QList<QUrl>& dropped)
{
    const QStringList before = std::exchange(m_paths, {});
    giveUp();
    m_paths = before + pathsOf(dropped);
    if (!m_paths.isEmpty())
        m_walk = FileWalk::start(m_paths, m_longest, [this](const FileWalk::Found& found) { take(found); });
    if (!m_walk) return take({QList<QStringList>(m_paths.size())});
    m_panels.beginWait(QCoreApplication::translate("Kestro", "Looking for movies in what was dropped…"),
                       [this] { giveUp(); });
}

void DroppedMovies::giveUp()
{
    m_paths.clear();
    m_rest = nullptr;
    if (std::exchange(m_walk, nullptr)) m_panels.endWait();
}

// An alert waits for the person: nothing here is looked at after it.
void DroppedMovies::take(const FileWalk::Found& found)
{
    QStringList files;
    for (qsizetype i = 0; i < m_paths.size(); ++i)
        files += movies(m_paths[i], found.files[i]);
    const auto rest = std::exchange(m_rest, nullptr);
    giveUp();
    if (!files.isEmpty()) m_add(files);
    if (!found.isWhole)
        m_panels.runAlert(QCoreApplication::translate(
            "Kestro", "The disk does not answer. Movies may be missing from what was dropped."));
    else if (files.isEmpty())
        m_panels.runAlert(QCoreApplication::translate("Kestro", "There are no movies in what was dropped."));
    else if (rest)
        rest();
}

} // namespace kestro
