#pragma once

#include "platform/base/Descriptor.h"

#include <QByteArray>

#include <optional>

namespace kestro {

// Bytes that the saver's process hands to its web helper in memory of their own, which neither can change any
// more. Any thread.

/// Memory with a copy of the bytes; a closed descriptor when there is none, or they are out of bounds.
[[nodiscard]] Descriptor sharedBytes(const QByteArray& bytes);

/// The bytes that the memory holds; none when it is not what sharedBytes() makes for that length.
[[nodiscard]] std::optional<QByteArray> bytesOf(const Descriptor& memory, qint64 length);

} // namespace kestro
