#pragma once

#include <QByteArray>
#include <QVariant>

#include <optional>

namespace kestro {

// The XML form, as the document type "-//Apple//DTD PLIST 1.0//EN" defines it. Kinds of values as in
// PropertyList.h. Any thread.

/// The tree that `bytes` hold; nothing when they are malformed in any place or nested too deep.
[[nodiscard]] std::optional<QVariant> readXmlPropertyList(const QByteArray& bytes);
/// The same, all of it by the reader that knows the whole of XML.
[[nodiscard]] std::optional<QVariant> readAnyXmlPropertyList(const QByteArray& bytes);

/// `root` as text; nothing when it holds a value of a kind that a property list cannot hold, text that XML
/// cannot hold, or is nested deeper than the readers accept.
[[nodiscard]] std::optional<QByteArray> xmlPropertyList(const QVariant& root);

} // namespace kestro
