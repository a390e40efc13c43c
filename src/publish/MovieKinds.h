#pragma once

#include <QString>

namespace kestro {

// What is known of a movie by its file name alone. Tested by MovieFilesTest.

/// "mov": the one extension by which trailers are told from other files.
[[nodiscard]] QString movieExtension();

/// Whether the name ends as movie files do.
[[nodiscard]] bool isMovieName(const QString& path);

/// The extension in lower case; of a movie's name it is ASCII letters and digits.
[[nodiscard]] QString lowerCaseExtension(const QString& path);

/// The type under which browsers try the movie; empty where its kind is not one of theirs.
[[nodiscard]] QString mimeTypeOf(const QString& path);

/// Sorts what more browsers play before what fewer play; "mov" is first.
[[nodiscard]] int browserRank(const QString& path);

} // namespace kestro
