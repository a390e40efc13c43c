#pragma once

#include <QString>
#include <QVariant>

#include <optional>

namespace kestro {

// Property lists, the XML and the binary form. Dictionary = QVariantMap, array = QVariantList, string =
// QString, data = QByteArray, date = QDateTime, integer = qlonglong (qulonglong above its range), real =
// double, flag = bool. Any thread.

/// Reads the property list at `path`, whichever of the two forms it has. Nothing when the file is missing,
/// unreadable, not a regular file, larger than 64 MiB, malformed, or nested deeper than 256 levels.
[[nodiscard]] std::optional<QVariant> readPropertyList(const QString& path);

/// The same for a property list whose root must be a dictionary; nothing when the root is something else.
[[nodiscard]] std::optional<QVariantMap> readPropertyListDictionary(const QString& path);

/// Writes `root` as an XML property list, atomically: the file at `path` is either the old one whole or the
/// new one whole. Its folder is made when missing. Answers whether it was written; values of kinds that a
/// property list cannot hold make it answer false and write nothing.
[[nodiscard]] bool writePropertyList(const QString& path, const QVariant& root);

} // namespace kestro
