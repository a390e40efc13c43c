#pragma once

#include <QByteArray>
#include <QVariant>

#include <optional>

namespace kestro {

// The XML form, as the document type "-//Apple//DTD PLIST 1.0//EN" defines it. Kinds of values as in
// PropertyList.h. Any thread.

/// The tree that `bytes` hold; nothing when they are malformed in any place, nested too deep, or hold more
/// than Bounds::propertyListValues.
[[nodiscard]] std::optional<QVariant> readXmlPropertyList(QByteArray bytes);

/// `root` as text; nothing when it holds a value of a kind that a property list cannot hold, text that XML
/// cannot hold, or goes deeper or holds more than the reader accepts.
[[nodiscard]] std::optional<QByteArray> xmlPropertyList(const QVariant& root);

} // namespace kestro
