#include "platform/plist/XmlText.h"

#include <QList>
#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

bool isCharacter(char32_t c)
{
    return c == u'\t' || c == u'\n' || c == u'\r' || (c >= 0x20 && c < 0xd800) ||
           (c >= 0xe000 && c < 0xfffe) || (c >= 0x10000 && c <= QChar::LastValidCodePoint);
}

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

/// The character with that number, "10" or "xa"; 0, which is none, where there is no such character.
char32_t numbered(QStringView number)
{
    const bool isHex = number.startsWith(u'x');
    if (isHex) number = number.sliced(1);
    if (!std::all_of(number.begin(), number.end(), isHexDigit)) return 0;
    const char32_t found = number.toUInt(nullptr, isHex ? 16 : 10);
    return isCharacter(found) ? found : 0;
}

/// What "&name;" stands for, or 0.
char32_t referred(QStringView name)
{
    if (name.startsWith(u'#')) return numbered(name.sliced(1));
    if (name == "amp"_L1) return u'&';
    if (name == "lt"_L1) return u'<';
    if (name == "gt"_L1) return u'>';
    if (name == "quot"_L1) return u'"';
    return name == "apos"_L1 ? u'\'' : 0;
}

std::optional<QString> withoutReferences(const QString& text)
{
    QString found;
    qsizetype from = 0;
    for (qsizetype at = text.indexOf(u'&'); at >= 0; at = text.indexOf(u'&', from)) {
        const qsizetype end = text.indexOf(u';', at);
        const char32_t character = end < 0 ? 0 : referred(QStringView(text).sliced(at + 1, end - at - 1));
        if (character == 0) return {};
        found.append(QStringView(text).sliced(from, at - from)).append(QChar::fromUcs4(character));
        from = end + 1;
    }
    return found += QStringView(text).sliced(from);
}

/// Whether that name is the encoding's, whichever order of bytes it has.
bool isNamed(QStringConverter::Encoding encoding, const QByteArray& name)
{
    constexpr qsizetype withoutOrder = 6; // "UTF-16", of "UTF-16LE"
    const auto named = QStringConverter::encodingForName(name.constData());
    return named && QByteArray(QStringConverter::nameForEncoding(*named)).left(withoutOrder) ==
                        QByteArray(QStringConverter::nameForEncoding(encoding)).left(withoutOrder);
}

std::optional<QByteArray> decoded(QByteArrayView document, QStringDecoder decoder)
{
    const QString found = decoder(document);
    return !decoder.isValid() || decoder.hasError() ? std::nullopt : std::optional(found.toUtf8());
}

} // namespace

const QString xmlSpace = QStringLiteral("[ \\t\\r\\n]");

bool canBeXml(const QString& text)
{
    const auto isPrintableAscii = [](QChar c) { return c >= u' ' && c <= u'~'; };
    if (std::all_of(text.begin(), text.end(), isPrintableAscii)) return true; // nearly every text is
    const auto codePoints = text.toUcs4();
    return text.isValidUtf16() && std::all_of(codePoints.begin(), codePoints.end(), isCharacter);
}

std::optional<QString> xmlLiteral(std::string_view written)
{
    // A mark of the order of bytes within a text is one of its characters.
    QStringDecoder utf8(QStringDecoder::Utf8,
                        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString found = utf8(QByteArrayView(written.data(), qsizetype(written.size())));
    return canBeXml(found) ? std::optional(found) : std::nullopt;
}

std::optional<QString> xmlText(std::string_view written)
{
    const auto found = xmlLiteral(written);
    return found ? withoutReferences(*found) : std::nullopt;
}

std::optional<QByteArray> xmlAsUtf8(QByteArray document)
{
    static const QRegularExpression declaration(
        QStringLiteral("^<\\?xml%1+version%1*=%1*([\"'])1\\.0\\1"
                       "(%1+encoding%1*=%1*([\"'])(?<encoding>[A-Za-z][-.\\w]*)\\3)?"
                       "(%1+standalone%1*=%1*([\"'])(yes|no)\\6)?%1*\\?>")
            .arg(xmlSpace));
    constexpr qsizetype longest = 1024;

    const auto marked = QStringConverter::encodingForData(document, u'<');
    if (marked) {
        auto found = decoded(document, QStringDecoder(*marked));
        if (!found) return {};
        document = std::move(*found);
    }
    const auto declared = declaration.match(QString::fromLatin1(document.left(longest)));
    document.remove(0, declared.capturedLength());
    const QByteArray name = declared.captured(u"encoding").toLatin1();
    if (name.isEmpty() || isNamed(marked.value_or(QStringConverter::Utf8), name)) return document;
    return marked ? std::nullopt : decoded(document, QStringDecoder(name.constData()));
}

} // namespace kestro
