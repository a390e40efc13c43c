#pragma once

#include "platform/base/Result.h"

#include <QByteArray>

namespace kestro {

// How a file is written: whole or not at all, and on the disk once nothing is answered; an error is the
// reason alone. Its folder is there. Any thread, any process at once.

/// Puts `bytes` in the place of the regular file at `path`, or makes it. A link stays, the file it points at
/// is replaced; the mode stays. What was begun beside it by writers that were killed is removed first, unless
/// another writer is at work in the folder.
[[nodiscard]] Result<void> replaceFile(const QString& path, const QByteArray& bytes);

/// The same, but a file that may not be written is left as it is.
[[nodiscard]] Result<void> replaceWritableFile(const QString& path, const QByteArray& bytes);

/// Makes a file at `path`, where nothing is.
[[nodiscard]] Result<void> makeFile(const QString& path, const QByteArray& bytes);

/// The file that the links at `path` lead to, whether it exists or not; empty when they lead in a circle.
[[nodiscard]] QString pastLinks(QString path);

} // namespace kestro
