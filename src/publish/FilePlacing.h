#pragma once

#include "platform/base/Result.h"

#include <QByteArray>
#include <QString>

#include <filesystem>

namespace kestro {

// Files that appear whole or not at all: each is made under another name beside its place, then renamed. Any
// thread; one at a time for one place.

/// What was done with a file.
enum class Placed { Unchanged, Written };

/// How a movie comes to its place.
enum class MovieTransfer {
    Link, ///< a second name of the file, else a symbolic link, else a copy, whichever is possible
    Copy,
};

/// The path for the platform's file operations.
[[nodiscard]] std::filesystem::path nativePath(const QString& path);

/// Makes `path` a file that holds `content`. One that does already is not touched.
[[nodiscard]] Result<Placed> placeContent(const QString& path, const QByteArray& content);

/// Makes `path` stand for the file `source`, an absolute path. One that does already, or that is a copy of
/// the same size and time, is not touched. A movie that cannot be played while it arrives is copied so that
/// it can.
[[nodiscard]] Result<Placed> placeMovie(const QString& path, const QString& source, MovieTransfer transfer);

/// Makes `path` a second name of `file`, which lies beside it, or a copy where a file has but one name.
[[nodiscard]] Result<Placed> placeSecondName(const QString& path, const QString& file);

/// Removes what an interrupted run left of the making of `path`.
void removeUnfinished(const QString& path);

} // namespace kestro
