#pragma once

#include <QByteArray>
#include <QVariant>

#include <optional>

namespace kestro {

// The XML form as it is nearly always written, by our writer and on a Mac: in UTF-8, with the usual document
// type or none, without comments, sections, processing instructions and entities of its own. A list of
// trailers can be long, and reading this much of XML takes a small part of the time that all of it takes.
// Any thread.

/// The tree that `bytes` hold, the same as readAnyXmlPropertyList() answers. Nothing where any of them is
/// out of the ordinary, be it wrong or merely rare.
[[nodiscard]] std::optional<QVariant> readPlainXmlPropertyList(QByteArrayView bytes);

} // namespace kestro
