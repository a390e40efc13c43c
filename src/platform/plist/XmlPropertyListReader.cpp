#include "platform/plist/PropertyListLimits.h"
#include "platform/plist/XmlPropertyList.h"

#include <QDateTime>
#include <QLocale>
#include <QXmlStreamReader>

#include <limits>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

/// One pass over one document. A fault anywhere is raised in the stream reader, which then answers no further
/// element.
class Reader final {
public:
    explicit Reader(const QByteArray& bytes)
        : m_xml(bytes)
    {
    }

    std::optional<QVariant> read()
    {
        QVariant root;
        if (m_xml.readNextStartElement() && m_xml.name() == "plist"_L1) root = onlyValueOfElement();
        while (!m_xml.atEnd())
            m_xml.readNext();
        if (m_xml.hasError() || !root.isValid()) return {};
        return root;
    }

private:
    QVariant onlyValueOfElement()
    {
        if (!m_xml.readNextStartElement()) return fault(u"no value"_s);
        QVariant root = value(1);
        if (m_xml.readNextStartElement()) return fault(u"more than one value"_s);
        return root;
    }

    QVariant value(int level)
    {
        const QStringView kind = m_xml.name();
        if (kind == "dict"_L1 || kind == "array"_L1) {
            if (level > deepestPropertyList) return fault(u"nested too deep"_s);
            return kind == "dict"_L1 ? dictionary(level) : array(level);
        }
        return scalar(kind.toString());
    }

    QVariant dictionary(int level)
    {
        QVariantMap found;
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() != "key"_L1) return fault(u"a value without a key"_s);
            const QString key = text();
            if (!m_xml.readNextStartElement()) return fault(u"a key without a value"_s);
            found.insert(key, value(level + 1));
        }
        return found;
    }

    QVariant array(int level)
    {
        QVariantList found;
        while (m_xml.readNextStartElement())
            found.append(value(level + 1));
        return found;
    }

    QVariant scalar(const QString& kind)
    {
        const QString content = text();
        if (kind == "string"_L1) return content;
        if (kind == "true"_L1 || kind == "false"_L1) return kind == "true"_L1;
        if (kind == "integer"_L1) return integer(content.trimmed());
        if (kind == "real"_L1) return real(content.trimmed());
        if (kind == "date"_L1) return date(content.trimmed());
        if (kind == "data"_L1) return data(content);
        return fault(u"unknown kind "_s + kind);
    }

    // Never a null string: that would be a null value.
    QString text()
    {
        const QString content = m_xml.readElementText();
        return content.isNull() ? u""_s : content;
    }

    // Decimal or, after 0x, hexadecimal.
    QVariant integer(const QString& content)
    {
        const bool isHex = content.contains(u'x', Qt::CaseInsensitive);
        bool isSigned = false;
        const qlonglong number = content.toLongLong(&isSigned, isHex ? 16 : 10);
        if (isSigned) return number;
        bool isUnsigned = false;
        const qulonglong large = content.toULongLong(&isUnsigned, isHex ? 16 : 10);
        return isUnsigned ? QVariant(large) : fault(u"no integer"_s);
    }

    QVariant real(const QString& content)
    {
        const QString name = content.toLower();
        const double infinity = std::numeric_limits<double>::infinity();
        if (name == "nan"_L1) return std::numeric_limits<double>::quiet_NaN();
        if (name == "+infinity"_L1 || name == "infinity"_L1 || name == "+inf"_L1 || name == "inf"_L1)
            return infinity;
        if (name == "-infinity"_L1 || name == "-inf"_L1) return -infinity;
        bool isNumber = false;
        const double number = QLocale::c().toDouble(content, &isNumber);
        return isNumber ? QVariant(number) : fault(u"no real number"_s);
    }

    QVariant date(const QString& content)
    {
        const QDateTime moment = QDateTime::fromString(content, Qt::ISODate);
        return moment.isValid() ? QVariant(moment.toUTC()) : fault(u"no date"_s);
    }

    QVariant data(const QString& content)
    {
        const QByteArray letters = content.simplified().remove(u' ').toLatin1();
        const auto decoded = QByteArray::fromBase64Encoding(letters, QByteArray::AbortOnBase64DecodingErrors);
        return decoded ? QVariant(decoded.decoded) : fault(u"no base-64 text"_s);
    }

    QVariant fault(const QString& why)
    {
        m_xml.raiseError(why);
        return {};
    }

    QXmlStreamReader m_xml;
};

} // namespace

std::optional<QVariant> readXmlPropertyList(const QByteArray& bytes)
{
    return Reader(bytes).read();
}

} // namespace kestro
