#pragma once

#include "platform/base/Descriptor.h"

#include <QString>

namespace kestro {

// Folders that no other user can enter or swap for theirs. Any thread.

/// Makes `path` a folder of mode 0700 that is ours, or checks that it is one (a wider mode of a folder of
/// ours is narrowed). False when it cannot be made, is a link, is no folder, or belongs to somebody else.
[[nodiscard]] bool makePrivateFolder(const QString& path);

/// The folder at `path` itself, not one that a link there leads to.
[[nodiscard]] Descriptor openFolder(const QString& path);

/// Whether only this user can put names into the folder `path`.
[[nodiscard]] bool isOwnFolder(const QString& path);

/// Makes a new folder of mode 0700 in `parent`, its name `prefix` and some random letters. Empty when it
/// cannot.
[[nodiscard]] QString newPrivateFolder(const QString& parent, const QString& prefix);

} // namespace kestro
