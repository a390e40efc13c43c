#pragma once

#include <QtGlobal>

namespace kestro {

// What a property list may cost. Files come from other programs and from downloads; the readers and the
// writer refuse what is beyond these, so that one odd file cannot take the memory or the stack of a whole
// desktop.

/// Size of a file, bytes.
constexpr qint64 largestPropertyList = 64LL * 1024 * 1024;

/// Containers in containers; the root is at level 1.
constexpr int deepestPropertyList = 256;

} // namespace kestro
