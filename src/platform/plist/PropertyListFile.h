#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace kestro {

// The bytes of a property list's file. Any thread.

/// The bytes of the regular file at `path`; nothing when it is missing, unreadable, too large, or no regular
/// file (opening a pipe could wait for ever).
[[nodiscard]] std::optional<QByteArray> readPropertyListFile(const QString& path);

/// Puts `bytes` in the place of the file at `path`, whole or not at all; answers whether it did. A link
/// stays, the file it points at is replaced. Folders that are missing are made.
[[nodiscard]] bool replacePropertyListFile(const QString& path, const QByteArray& bytes);

} // namespace kestro
