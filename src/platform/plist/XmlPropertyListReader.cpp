#include "platform/base/Bounds.h"
#include "platform/plist/PlainXmlPropertyList.h"
#include "platform/plist/XmlPropertyList.h"
#include "platform/plist/XmlPropertyListScalar.h"

#include <QXmlStreamReader>

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
            if (level > Bounds::propertyListDepth) return fault(u"nested too deep"_s);
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
        const auto found = xmlPropertyListScalar(kind, text());
        return found ? *found : fault(u"unknown kind or content: "_s + kind);
    }

    // Never a null string: that would be a null value.
    QString text()
    {
        const QString content = m_xml.readElementText();
        return content.isNull() ? u""_s : content;
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
    const auto plain = readPlainXmlPropertyList(bytes);
    return plain ? plain : readAnyXmlPropertyList(bytes);
}

std::optional<QVariant> readAnyXmlPropertyList(const QByteArray& bytes)
{
    return Reader(bytes).read();
}

} // namespace kestro
