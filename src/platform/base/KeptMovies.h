#pragma once

class QString;
class QUrl;

namespace kestro {

// Where copies of movies from the web are kept, so that they play without it. Any thread, but for the folder.

/// The folder that holds them: "movies" in cacheFolder(). It need not exist. Main thread.
[[nodiscard]] QString keptMoviesFolder();

/// Whether a copy of it is of use: a movie on a web site, and neither web content nor what is called as a
/// list of streams is.
[[nodiscard]] bool canBeKept(const QUrl& movie);

/// What the copy of that movie is called in there, and whatever belongs to it, without an extension: no name
/// tells where it is from.
[[nodiscard]] QString keptName(const QUrl& movie);

/// The copy of that movie in `folder`, which may or may not be there.
[[nodiscard]] QString keptMovieFile(const QString& folder, const QUrl& movie);

} // namespace kestro
