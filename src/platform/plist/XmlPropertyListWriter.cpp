#include "platform/base/Bounds.h"
#include "platform/plist/XmlPropertyList.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

constexpr QByteArrayView head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                "<plist version=\"1.0\">\n";

bool isPrintableAscii(QChar c)
{
    return c >= u' ' && c <= u'~';
}

// Which code points XML 1.0 can hold at all (its production "Char"). Nearly every text is plain.
bool canBeXml(const QString& text)
{
    if (std::all_of(text.begin(), text.end(), isPrintableAscii)) return true;
    const auto codePoints = text.toUcs4();
    const auto isCharacter = [](char32_t c) {
        return c == u'\t' || c == u'\n' || c == u'\r' || (c >= 0x20 && c < 0xd800) ||
               (c >= 0xe000 && c < 0xfffe) || c >= 0x10000;
    };
    return text.isValidUtf16() && std::all_of(codePoints.begin(), codePoints.end(), isCharacter);
}

QString realText(double number)
{
    if (std::isnan(number)) return u"nan"_s;
    if (std::isinf(number)) return number > 0 ? u"+infinity"_s : u"-infinity"_s;
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

// What stands for a byte of a text; empty where it stands for itself. A carriage return is a reference,
// because XML readers turn a bare one into a line feed.
QByteArrayView reference(char byte)
{
    switch (byte) {
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '&':
        return "&amp;";
    case '"':
        return "&quot;";
    case '\r':
        return "&#13;";
    default:
        return {};
    }
}

/// Writes one tree, an element a line, one tab a level. Each operation answers false at the first value that
/// cannot be written.
class Writer final {
public:
    std::optional<QByteArray> write(const QVariant& root)
    {
        m_bytes.append(head);
        if (!value(root, 1)) return {};
        m_bytes.append("</plist>\n");
        return m_bytes;
    }

private:
    bool value(const QVariant& value, int level)
    {
        switch (value.typeId()) {
        case QMetaType::QVariantMap:
            return dictionary(value.toMap(), level);
        case QMetaType::QVariantList:
        case QMetaType::QStringList:
            return array(value.toList(), level);
        default:
            return scalar(value, level);
        }
    }

    bool dictionary(const QVariantMap& entries, int level)
    {
        if (level > Bounds::propertyListDepth) return false;
        if (entries.isEmpty()) return line(level, "<dict/>");
        line(level, "<dict>");
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            if (!text(level + 1, "key", entry.key()) || !value(entry.value(), level + 1)) return false;
        }
        return line(level, "</dict>");
    }

    bool array(const QVariantList& values, int level)
    {
        if (level > Bounds::propertyListDepth) return false;
        if (values.isEmpty()) return line(level, "<array/>");
        line(level, "<array>");
        const auto isWritten = [&](const QVariant& element) { return value(element, level + 1); };
        return std::all_of(values.begin(), values.end(), isWritten) && line(level, "</array>");
    }

    bool scalar(const QVariant& value, int level)
    {
        switch (value.typeId()) {
        case QMetaType::QString:
            return text(level, "string", value.toString());
        case QMetaType::Bool:
            return line(level, value.toBool() ? "<true/>" : "<false/>");
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            return text(level, "integer", value.toString());
        case QMetaType::Float:
        case QMetaType::Double:
            return text(level, "real", realText(value.toDouble()));
        case QMetaType::QByteArray:
            return text(level, "data", QString::fromLatin1(value.toByteArray().toBase64()));
        case QMetaType::QDateTime:
            return date(level, value.toDateTime().toUTC());
        default:
            return false;
        }
    }

    bool date(int level, const QDateTime& moment)
    {
        const int year = moment.date().year();
        return moment.isValid() && year >= 1 && year <= 9999 &&
               text(level, "date", moment.toString(u"yyyy-MM-dd'T'HH:mm:ss'Z'"_s));
    }

    bool text(int level, QByteArrayView kind, const QString& content)
    {
        if (!canBeXml(content)) return false;
        m_bytes.append(level, '\t').append('<').append(kind).append('>');
        characters(content.toUtf8());
        m_bytes.append("</").append(kind).append(">\n");
        return true;
    }

    void characters(const QByteArray& content)
    {
        auto written = content.begin();
        for (auto at = content.begin(); at != content.end(); ++at) {
            const QByteArrayView stand = reference(*at);
            if (stand.isEmpty()) continue;
            m_bytes.append(QByteArrayView(written, at)).append(stand);
            written = at + 1;
        }
        m_bytes.append(QByteArrayView(written, content.end()));
    }

    // Answers true, for whoever answers that in turn.
    bool line(int level, QByteArrayView element)
    {
        m_bytes.append(level, '\t').append(element).append('\n');
        return true;
    }

    QByteArray m_bytes;
};

} // namespace

std::optional<QByteArray> xmlPropertyList(const QVariant& root)
{
    return Writer().write(root);
}

} // namespace kestro
