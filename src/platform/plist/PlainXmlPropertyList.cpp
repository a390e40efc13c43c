#include "platform/plist/PlainXmlPropertyList.h"

#include "platform/base/Bounds.h"
#include "platform/plist/XmlPropertyListScalar.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

constexpr QByteArrayView declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
constexpr QByteArrayView documentType = "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                        "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">";
constexpr QByteArrayView olderDocumentType =
    "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">";

constexpr std::array<std::pair<QByteArrayView, char16_t>, 6> references{
    {{"amp", u'&'}, {"lt", u'<'}, {"gt", u'>'}, {"quot", u'"'}, {"apos", u'\''}, {"#13", u'\r'}}};

/// Short texts that were read, so that one that comes again, as keys do, is the same text in memory.
class TextPool final {
public:
    QString text(QByteArrayView ascii)
    {
        if (ascii.isEmpty()) return u""_s; // never null: that would be a null value
        const QLatin1StringView content(ascii);
        if (content.size() > longest) return content;
        QString& kept = m_texts[hash(ascii) % m_texts.size()];
        if (kept != content) kept = content;
        return kept;
    }

private:
    static constexpr qsizetype longest = 24;

    static std::size_t hash(QByteArrayView ascii)
    {
        std::size_t found = 0;
        for (const char c : ascii)
            found = found * 31 + static_cast<unsigned char>(c);
        return found;
    }

    std::array<QString, 509> m_texts;
};

/// One pass over one document. Where something is not plain the rest of the document is thrown away, so that
/// nothing that is expected is found any more.
class Reader final {
public:
    explicit Reader(QByteArrayView bytes)
        : m_rest(bytes)
    {
    }

    std::optional<QVariant> read()
    {
        take(declaration);
        skipSpace();
        if (!take(documentType)) take(olderDocumentType);
        skipSpace();
        if (!take("<plist version=\"1.0\">")) return {};
        QVariant root = value(1);
        if (!takeTag("</plist>")) return {};
        skipSpace();
        return m_rest.isEmpty() ? std::optional(root) : std::nullopt;
    }

private:
    QVariant value(int level)
    {
        if (takeTag("<string>")) return text("</string>");
        if (takeTag("<dict")) return level > Bounds::propertyListDepth ? unusual() : dictionary(level);
        if (takeTag("<array")) return level > Bounds::propertyListDepth ? unusual() : array(level);
        if (takeTag("<true/>")) return true;
        if (takeTag("<false/>")) return false;
        for (const auto& [kind, begin, end] : rareScalars)
            if (takeTag(begin)) return scalar(kind, text(end));
        return unusual();
    }

    QVariant dictionary(int level)
    {
        QVariantMap found;
        if (take("/>")) return found;
        if (!take(">")) return unusual();
        while (!takeTag("</dict>")) {
            if (!takeTag("<key>")) return unusual();
            const QString key = text("</key>");
            found.insert(found.cend(), key, value(level + 1)); // most often they are in order
        }
        return found;
    }

    QVariant array(int level)
    {
        QVariantList found;
        if (take("/>")) return found;
        if (!take(">")) return unusual();
        while (!takeTag("</array>")) {
            found.append(value(level + 1));
            if (m_rest.isEmpty()) return unusual();
        }
        return found;
    }

    QVariant scalar(QStringView kind, const QString& content)
    {
        const auto found = xmlPropertyListScalar(kind, content);
        return found ? *found : unusual();
    }

    QString text(QByteArrayView end)
    {
        const auto* const tag = static_cast<const char*>(
            std::memchr(m_rest.data(), '<', static_cast<std::size_t>(m_rest.size())));
        const QByteArrayView content = m_rest.first(tag ? tag - m_rest.data() : m_rest.size());
        m_rest = m_rest.sliced(content.size());
        if (!take(end)) return unusualText();
        return std::all_of(content.begin(), content.end(), isPlain) ? m_pool.text(content) : decoded(content);
    }

    static bool isPlain(char c)
    {
        return (c >= ' ' && c != '&' && c != '>' && c != '\x7f') || c == '\n' || c == '\t';
    }

    // Bytes that are UTF-8 of what XML can hold, and no line end that it would change.
    QString decoded(QByteArrayView content)
    {
        QStringDecoder utf8(QStringDecoder::Utf8,
                            QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
        const QString found = utf8(content);
        const auto isRare = [](QChar c) {
            return (c < u' ' && c != u'\n' && c != u'\t') || c == u'>' || c >= u'\xfffe';
        };
        if (utf8.hasError() || std::any_of(found.begin(), found.end(), isRare)) return unusualText();
        return withoutReferences(found);
    }

    QString withoutReferences(const QString& content)
    {
        QString found;
        qsizetype from = 0;
        for (qsizetype at = content.indexOf(u'&'); at >= 0; at = content.indexOf(u'&', from)) {
            found += QStringView(content).sliced(from, at - from);
            const qsizetype end = content.indexOf(u';', at);
            const auto name = QStringView(content).sliced(at + 1, std::max<qsizetype>(0, end - at - 1));
            const auto known = std::find_if(references.begin(), references.end(), [&](const auto& one) {
                return name == QLatin1StringView(one.first);
            });
            if (known == references.end()) return unusualText();
            found += known->second;
            from = end + 1;
        }
        return found += QStringView(content).sliced(from);
    }

    bool take(QByteArrayView expected)
    {
        if (!m_rest.startsWith(expected)) return false;
        m_rest = m_rest.sliced(expected.size());
        return true;
    }

    bool takeTag(QByteArrayView expected)
    {
        skipSpace();
        return take(expected);
    }

    void skipSpace()
    {
        const auto isSpace = [](char c) { return c == ' ' || c == '\n' || c == '\t'; };
        m_rest = m_rest.sliced(std::find_if_not(m_rest.begin(), m_rest.end(), isSpace) - m_rest.begin());
    }

    QVariant unusual()
    {
        m_rest = {};
        return {};
    }

    QString unusualText()
    {
        m_rest = {};
        return {};
    }

    struct Scalar {
        QStringView kind;
        QByteArrayView begin;
        QByteArrayView end;
    };
    static constexpr std::array<Scalar, 4> rareScalars{{{u"integer", "<integer>", "</integer>"},
                                                        {u"real", "<real>", "</real>"},
                                                        {u"date", "<date>", "</date>"},
                                                        {u"data", "<data>", "</data>"}}};

    QByteArrayView m_rest;
    TextPool m_pool;
};

} // namespace

std::optional<QVariant> readPlainXmlPropertyList(QByteArrayView bytes)
{
    return Reader(bytes).read();
}

} // namespace kestro
