#include "platform/base/Bounds.h"
#include "platform/plist/XmlDocument.h"
#include "platform/plist/XmlPropertyList.h"
#include "platform/plist/XmlPropertyListScalar.h"
#include "platform/plist/XmlText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

/// Short texts that were read, so that one that comes again, as keys do, is the same text in memory.
class TextPool final {
public:
    QString text(std::string_view ascii)
    {
        if (ascii.empty()) return u""_s; // never null: that would be a null value
        const QLatin1StringView content(ascii.data(), qsizetype(ascii.size()));
        if (content.size() > longest) return content;
        QString& kept = m_texts[std::hash<std::string_view>()(ascii) % m_texts.size()];
        if (kept != content) kept = content;
        return kept;
    }

private:
    static constexpr qsizetype longest = 24;

    std::array<QString, 509> m_texts;
};

bool isPlain(char c)
{
    return (c >= ' ' && c < '\x7f' && c != '&' && c != ']') || c == '\n' || c == '\t';
}

/// Makes values of the elements of one document.
class Reader final {
public:
    std::optional<QVariant> onlyValueOf(pugi::xml_node plist)
    {
        if (!isProperXml(plist)) return {};
        std::optional<QVariant> found;
        const bool isOne = forEachElement(plist, [&](pugi::xml_node element) {
            if (found) return false;
            found = value(element, 1);
            return found.has_value();
        });
        return isOne ? found : std::nullopt;
    }

private:
    std::optional<QVariant> value(pugi::xml_node element, int level)
    {
        const std::string_view kind = element.name();
        const bool isContainer = kind == "dict" || kind == "array";
        if (!isProperXml(element) || (isContainer && level > Bounds::propertyListDepth)) return {};
        if (isContainer) return kind == "dict" ? dictionary(element, level) : array(element, level);
        const auto content = text(element);
        if (!content) return {};
        return xmlPropertyListScalar(QLatin1StringView(element.name()), *content);
    }

    std::optional<QVariant> dictionary(pugi::xml_node element, int level)
    {
        QVariantMap found;
        std::optional<QString> key;
        const bool isWhole = forEachElement(element, [&](pugi::xml_node child) {
            if (!key) {
                if (child.name() == std::string_view("key") && isProperXml(child)) key = text(child);
                return key.has_value();
            }
            auto entry = value(child, level + 1);
            if (entry) found.insert(found.cend(), *key, std::move(*entry)); // most often they are in order
            key.reset();
            return entry.has_value();
        });
        return isWhole && !key ? std::optional(QVariant(found)) : std::nullopt;
    }

    std::optional<QVariant> array(pugi::xml_node element, int level)
    {
        QVariantList found;
        const bool isWhole = forEachElement(element, [&](pugi::xml_node child) {
            auto entry = value(child, level + 1);
            if (entry) found.append(std::move(*entry));
            return entry.has_value();
        });
        return isWhole ? std::optional(QVariant(found)) : std::nullopt;
    }

    /// Calls `visit` with each element in `container` until it answers false. Answers whether it never did,
    /// and what stands between them is proper; it means nothing.
    template <typename Visit>
    bool forEachElement(pugi::xml_node container, const Visit& visit)
    {
        if (!text(container.value())) return false;
        for (auto child = container.first_child(); child; child = child.next_sibling())
            if (child.type() == pugi::node_element ? !visit(child) : !textOf(child)) return false;
        return true;
    }

    /// All text in an element that holds no others.
    std::optional<QString> text(pugi::xml_node element)
    {
        auto found = text(element.value());
        for (auto child = element.first_child(); child; child = child.next_sibling()) {
            const auto more = found ? textOf(child) : std::nullopt;
            if (!more) return {};
            *found += *more;
        }
        return found;
    }

    /// The text that a node in an element adds to it; nothing where it is an element or none of XML.
    std::optional<QString> textOf(pugi::xml_node node)
    {
        if (node.type() == pugi::node_pcdata) return text(node.value());
        if (node.type() == pugi::node_cdata) return xmlLiteral(node.value());
        const bool isSilent = node.type() == pugi::node_comment || node.type() == pugi::node_pi;
        return isSilent && isProperXml(node) ? std::optional(u""_s) : std::nullopt;
    }

    std::optional<QString> text(std::string_view written)
    {
        if (std::ranges::all_of(written, isPlain)) return m_pool.text(written);
        return written.find("]]>") == written.npos ? xmlText(written) : std::nullopt;
    }

    TextPool m_pool;
};

} // namespace

std::optional<QVariant> readXmlPropertyList(QByteArray bytes)
{
    XmlDocument document;
    if (!document.load(std::move(bytes)) || document.root().name() != std::string_view("plist")) return {};
    return Reader().onlyValueOf(document.root());
}

} // namespace kestro
