#include "platform/plist/PropertyListLimits.h"
#include "platform/plist/XmlPropertyList.h"

#include <QDateTime>
#include <QLocale>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

// Which code points XML 1.0 can hold at all (its production "Char").
bool canBeXml(const QString& text)
{
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

/// Writes one tree. Each operation answers false at the first value that cannot be written.
class Writer final {
public:
    std::optional<QByteArray> write(const QVariant& root)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(-1); // one tab a level
        m_xml.writeStartDocument();
        m_xml.writeDTD(u"<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                       "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"_s);
        m_xml.writeStartElement(u"plist"_s);
        m_xml.writeAttribute(u"version"_s, u"1.0"_s);
        if (!value(root, 1)) return {};
        m_xml.writeEndDocument();
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
            return scalar(value);
        }
    }

    bool dictionary(const QVariantMap& entries, int level)
    {
        if (level > deepestPropertyList) return false;
        m_xml.writeStartElement(u"dict"_s);
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            if (!text(u"key"_s, entry.key()) || !value(entry.value(), level + 1)) return false;
        }
        m_xml.writeEndElement();
        return true;
    }

    bool array(const QVariantList& values, int level)
    {
        if (level > deepestPropertyList) return false;
        m_xml.writeStartElement(u"array"_s);
        const bool written = std::all_of(values.begin(), values.end(),
                                         [&](const QVariant& element) { return value(element, level + 1); });
        m_xml.writeEndElement();
        return written;
    }

    bool scalar(const QVariant& value)
    {
        switch (value.typeId()) {
        case QMetaType::QString:
            return text(u"string"_s, value.toString());
        case QMetaType::Bool:
            m_xml.writeEmptyElement(value.toBool() ? u"true"_s : u"false"_s);
            return true;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            return text(u"integer"_s, value.toString());
        case QMetaType::Float:
        case QMetaType::Double:
            return text(u"real"_s, realText(value.toDouble()));
        case QMetaType::QByteArray:
            return text(u"data"_s, QString::fromLatin1(value.toByteArray().toBase64()));
        case QMetaType::QDateTime:
            return date(value.toDateTime().toUTC());
        default:
            return false;
        }
    }

    bool date(const QDateTime& moment)
    {
        const int year = moment.date().year();
        return moment.isValid() && year >= 1 && year <= 9999 &&
               text(u"date"_s, moment.toString(u"yyyy-MM-dd'T'HH:mm:ss'Z'"_s));
    }

    // A carriage return stands as a reference, because XML readers turn a bare one into a line feed.
    bool text(const QString& kind, const QString& content)
    {
        if (!canBeXml(content)) return false;
        m_xml.writeStartElement(kind);
        const auto parts = content.split(u'\r');
        m_xml.writeCharacters(parts.front());
        for (qsizetype part = 1; part < parts.size(); ++part) {
            m_xml.writeEntityReference(u"#13"_s);
            m_xml.writeCharacters(parts[part]);
        }
        m_xml.writeEndElement();
        return true;
    }

    QByteArray m_bytes;
    QXmlStreamWriter m_xml{&m_bytes};
};

} // namespace

std::optional<QByteArray> xmlPropertyList(const QVariant& root)
{
    return Writer().write(root);
}

} // namespace kestro
