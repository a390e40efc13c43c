#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace kestro {

// The bytes of a property list's file. Any thread.

/// The bytes of the regular file at `path`; nothing when it is missing, unreadable, too large, or no regular
/// file (opening a pipe could wait for ever).
[[nodiscard]] std::optional<QByteArray> readPropertyListFile(const QString& path);

/// Whether there is anything at `path` that writing to it would replace, readable or not.
[[nodiscard]] bool isPropertyListFileThere(const QString& path);

/// Gives whatever is at `path`, a file that nobody can read or a folder, another name beside it that nothing
/// has yet; a link stays, what it points at goes. Answers where it is now, nothing where it stays.
[[nodiscard]] std::optional<QString> setAsidePropertyListFile(const QString& path);

/// Puts `bytes` in the place of the file at `path`, whole or not at all; answers whether it did. A link
/// stays, the file it points at is replaced. Folders that are missing are made, and what writers left behind
/// that were killed is removed.
[[nodiscard]] bool replacePropertyListFile(const QString& path, const QByteArray& bytes);

} // namespace kestro
