#pragma once

#include <QByteArray>

#include <pugixml.hpp>

namespace kestro {

/// A document of XML as pugixml parses it, and with what it lets pass refused: pugixml does not mind what
/// stands where, which characters there are, and how much memory a document takes. A document type has no
/// declarations of its own, and a name no prefix, or there is no such document. One thread at a time. Tested
/// by XmlPropertyListReaderTest.
class XmlDocument final {
public:
    /// Whether `bytes` are one. Text within the root is left to whoever reads it: it is as it is written, and
    /// the first text in an element is that element's own value.
    [[nodiscard]] bool load(QByteArray bytes);

    /// The outermost element, once loaded.
    [[nodiscard]] pugi::xml_node root() const { return m_tree.document_element(); }

private:
    [[nodiscard]] bool isWellOrdered() const;
    [[nodiscard]] bool isDocumentType(pugi::xml_node node) const;

    QByteArray m_bytes; ///< which the tree refers to
    pugi::xml_document m_tree;
};

/// Whether a document holds more than load() takes.
[[nodiscard]] bool isTooMuchXml(QByteArrayView document);

/// Whether the attributes of an element may be there, or what a comment or an instruction says.
[[nodiscard]] bool isProperXml(pugi::xml_node node);

} // namespace kestro
