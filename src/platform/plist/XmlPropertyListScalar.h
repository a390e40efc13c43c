#pragma once

#include <QString>
#include <QVariant>

#include <optional>

namespace kestro {

// The elements of an XML property list that hold text and no other elements. Any thread.
// Tested by XmlPropertyListReaderTest.

/// The value of the element `kind` with that content, which is empty but not null for an empty element.
/// Nothing where there is no such kind, or the content is none of it.
[[nodiscard]] std::optional<QVariant> xmlPropertyListScalar(QLatin1StringView kind, const QString& content);

} // namespace kestro
