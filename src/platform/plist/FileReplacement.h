#pragma once

#include <QByteArray>
#include <QString>

namespace kestro {

// How a file is replaced whole. Any thread, any process at once.

/// Puts `bytes` in the place of the regular file at `path`, which is no link, or makes it; its folder is
/// there. Whole or not at all, and on the disk when it answers true. The mode stays. What was begun beside it
/// by writers that were killed is removed first, unless another writer is at work in the folder.
[[nodiscard]] bool replaceFile(const QString& path, const QByteArray& bytes);

} // namespace kestro
