#pragma once

#include "platform/base/ChildProgram.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <chrono>
#include <optional>
#include <stop_token>

namespace kestro {

/// What the text of a playlist file at `path` names. Any thread.
using ListReader = QList<QUrl> (*)(const QString& path, const QByteArray& text);

/// A folder of movies to look into, or a playlist file, and how. A value.
struct MovieFolder {
    QString path;
    bool isRecursive = false;   ///< also what lies below its folders
    bool isNewestFirst = false; ///< else by name
    bool isHurried = false;     ///< all at once, also of a large folder
    bool isOnce = false;        ///< without watching it
    ListReader list = nullptr;  ///< what reads it, where it is a playlist file
};

/// The program that looks into it and writes to the descriptor `said`, as FolderFollow.h says. Any thread.
[[nodiscard]] ChildProgram programFor(const MovieFolder& folder, int said);

/// Adds the movie that the program calls `name`; of a playlist file that is its text, and all that it names
/// are added. Any thread.
void addMovies(QList<QUrl>& movies, const MovieFolder& folder, const QByteArray& name);

/// What the folder or file holds now: one that is not there holds nothing. Nothing where its disk has not
/// answered within `longest`, or was not waited for any longer. Any thread, which waits.
[[nodiscard]] std::optional<QList<QUrl>> moviesIn(MovieFolder folder, std::chrono::milliseconds longest,
                                                  const std::stop_token& stop = {});

} // namespace kestro
