#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <string_view>

namespace kestro {

// The characters of XML 1.0: what pugixml takes as it comes. Any thread. Tested by
// XmlPropertyListReaderTest.

/// What takes a character of space, within a regular expression.
extern const QString xmlSpace;

/// Whether each character is one that XML can hold, however it is written (its production "Char").
[[nodiscard]] bool canBeXml(const QString& text);

/// What UTF-8 between tags or quotes stands for: itself, with its references resolved. Nothing where one of
/// them is not defined, or a character is none of XML.
[[nodiscard]] std::optional<QString> xmlText(std::string_view written);

/// The same of UTF-8 in which nothing stands for anything else: a section, a comment, an instruction.
[[nodiscard]] std::optional<QString> xmlLiteral(std::string_view written);

/// A document, in whatever encoding it tells of, as UTF-8 without its declaration. Nothing where it is none
/// of an encoding that it tells of.
[[nodiscard]] std::optional<QByteArray> xmlAsUtf8(QByteArray document);

} // namespace kestro
