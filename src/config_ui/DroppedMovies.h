#pragma once

#include <QStringList>

class QMimeData;
class QUrl;

namespace kestro {

/// Whether files or folders of this machine are among what is dropped.
[[nodiscard]] bool holdsFiles(const QMimeData& dropped);

/// The files among these, whatever they are, and the movies below the folders among them, those of each
/// folder sorted: what is called as movies are, is not hidden and does not lie behind a link to a folder.
/// 100,000 names of a folder are looked at, and no more. Any thread; takes as long as the disk.
[[nodiscard]] QStringList droppedMovies(const QList<QUrl>& urls);

} // namespace kestro
