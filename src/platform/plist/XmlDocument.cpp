#include "platform/plist/XmlDocument.h"

#include "platform/base/Bounds.h"
#include "platform/plist/XmlText.h"

#include <QRegularExpression>

#include <algorithm>
#include <set>
#include <string_view>

namespace kestro {

namespace {

constexpr unsigned int whatIsParsed = pugi::parse_fragment | pugi::parse_doctype | pugi::parse_declaration |
                                      pugi::parse_pi | pugi::parse_comments | pugi::parse_cdata |
                                      pugi::parse_eol | pugi::parse_embed_pcdata;

bool isSpaceOrQuote(char c)
{
    return c == ' ' || c == '"' || c == '\'' || c == '\t' || c == '\n' || c == '\r';
}

/// What is to be known of a document before it is parsed.
struct Survey {
    qsizetype values = 0;     ///< elements and attributes: each takes memory, however short it is
    bool hasSections = false; ///< whether there is anything in angle brackets but elements and the type
};

// What a text or a section holds may look like an attribute or an element; there it seldom does.
Survey surveyOf(QByteArrayView bytes)
{
    Survey found;
    for (const char* at = bytes.begin(); at + 1 < bytes.end(); ++at) {
        if (*at == '<' && at[1] != '/') {
            ++found.values;
            if (at[1] == '?' || (at[1] == '!' && at[2] != 'D')) found.hasSections = true;
        }
        if (*at == '=' && isSpaceOrQuote(at[1])) ++found.values;
    }
    return found;
}

bool isPlainName(std::string_view name)
{
    return std::ranges::all_of(name, [](char c) { return c > 0 && c != ':'; });
}

bool isProperAttribute(pugi::xml_attribute attribute)
{
    const std::string_view value = attribute.value();
    return isPlainName(attribute.name()) && value.find('<') == value.npos && xmlText(value);
}

bool hasProperAttributes(pugi::xml_node element)
{
    std::set<std::string_view> names;
    for (auto attribute = element.first_attribute(); attribute; attribute = attribute.next_attribute())
        if (!isProperAttribute(attribute) || !names.insert(attribute.name()).second) return false;
    return true;
}

bool isSpace(pugi::xml_node node)
{
    return node.type() == pugi::node_pcdata &&
           std::ranges::all_of(std::string_view(node.value()),
                               [](char c) { return c == ' ' || c == '\n' || c == '\t'; });
}

} // namespace

bool isTooMuchXml(QByteArrayView document)
{
    return surveyOf(document).values > Bounds::propertyListValues;
}

bool isProperXml(pugi::xml_node node)
{
    const std::string_view value = node.value();
    switch (node.type()) {
    case pugi::node_element:
        return hasProperAttributes(node);
    case pugi::node_comment:
        return value.find("--") == value.npos && !value.ends_with('-') && xmlLiteral(value);
    case pugi::node_pi:
        return isPlainName(node.name()) && xmlLiteral(value);
    default:
        return false;
    }
}

bool XmlDocument::isDocumentType(pugi::xml_node node) const
{
    static const QRegularExpression allowed(
        QStringLiteral("^[A-Za-z_][-.\\w]*"
                       "(%1+(PUBLIC%1+(\"[- \\n\\w'()+,./:=?;!*#@$%]*\"|'[- \\n\\w()+,./:=?;!*#@$%]*')"
                       "|SYSTEM)%1+(\"[^\"<&]*\"|'[^'<&]*'))?%1*$")
            .arg(xmlSpace));
    const char before = m_bytes.at(node.offset_debug() - 1);
    const auto text = xmlLiteral(node.value());
    return isSpaceOrQuote(before) && text && allowed.match(*text).hasMatch();
}

bool XmlDocument::isWellOrdered() const
{
    bool isTyped = false;
    bool isThere = false;
    for (const auto node : m_tree.children()) {
        const bool isElement = node.type() == pugi::node_element;
        const bool isType = node.type() == pugi::node_doctype;
        if (isSpace(node)) continue;
        if (((isElement || isType) && isThere) || (isType && isTyped)) return false;
        if (isType ? !isDocumentType(node) : !isProperXml(node)) return false;
        isThere |= isElement;
        isTyped |= isType;
    }
    return isThere;
}

bool XmlDocument::load(QByteArray bytes)
{
    auto document = xmlAsUtf8(std::move(bytes));
    if (!document || document->isEmpty()) return false;
    if (document->startsWith("\xef\xbb\xbf"))
        return false; // a mark of the order of bytes, in the wrong place
    if (document->contains('\0') || !QUtf8StringView(*document).isValidUtf8()) return false;
    m_bytes = std::move(*document);
    const Survey survey = surveyOf(m_bytes);
    if (survey.values > Bounds::propertyListValues) return false;
    // Space between elements is nothing, but beside a section it may be part of a text.
    const auto space = survey.hasSections ? pugi::parse_ws_pcdata : pugi::parse_ws_pcdata_single;
    // The zero after the last byte is one of them: pugixml does not mind what the last one is.
    const auto parsed = m_tree.load_buffer_inplace(m_bytes.data(), std::size_t(m_bytes.size()) + 1,
                                                   whatIsParsed | space, pugi::encoding_utf8);
    return parsed && isWellOrdered();
}

} // namespace kestro
