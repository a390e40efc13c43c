#pragma once

#include <QByteArray>
#include <QVariant>

#include <optional>

namespace kestro {

// The binary form, version "bplist00", as CoreFoundation's CFBinaryPList.c describes it: objects that refer
// to each other by number, a table of their places, and a trailer. Kinds of values as in PropertyList.h. Any
// thread.

/// Whether `bytes` start as a binary property list does.
[[nodiscard]] bool isBinaryPropertyList(const QByteArray& bytes);

/// The tree that `bytes` hold; nothing when they are malformed, nested too deep (a container inside itself
/// is), or unfold to far more than their own size.
[[nodiscard]] std::optional<QVariant> readBinaryPropertyList(const QByteArray& bytes);

} // namespace kestro
