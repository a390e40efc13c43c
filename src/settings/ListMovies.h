#pragma once

#include <QList>

class QByteArray;
class QString;
class QUrl;

namespace kestro {

/// Whether a file is called as playlist files are: its name ends in .m3u, .m3u8 or .xspf, in whatever
/// letters.
[[nodiscard]] bool isCalledAsList(const QString& path);

/// What the playlist file at `path`, which holds `text`, names: files of this machine and movies on the web,
/// in its order. An XML text is read as XSPF where the file is called so, any other line by line. What else
/// it names, further lists among it, is left out, and what is beyond Bounds::listFileMovies; a log line says
/// how many. One longer than Bounds::listFileBytes, or that cannot be read, names nothing. No disk is asked.
/// Any thread.
[[nodiscard]] QList<QUrl> moviesOfList(const QString& path, const QByteArray& text);

} // namespace kestro
