#include "platform/base/Bounds.h"
#include "platform/plist/XmlDocument.h"
#include "platform/plist/XmlPropertyList.h"
#include "platform/plist/XmlText.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <pugixml.hpp>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

QString realText(double number)
{
    if (std::isnan(number)) return u"nan"_s;
    if (std::isinf(number)) return number > 0 ? u"+infinity"_s : u"-infinity"_s;
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

// pugixml would leave a carriage return as it is, which readers take for the end of a line.
QString escaped(const QString& text)
{
    const auto isPlain = [](QChar c) {
        return c != u'<' && c != u'>' && c != u'&' && c != u'"' && c != u'\r';
    };
    if (std::all_of(text.begin(), text.end(), isPlain)) return text;
    return text.toHtmlEscaped().replace(u'\r', "&#13;"_L1);
}

/// Makes elements of one tree of values. Each operation answers false at the first value that cannot be
/// written.
class Writer final {
public:
    bool add(pugi::xml_node parent, const QVariant& value, int level)
    {
        switch (value.typeId()) {
        case QMetaType::QVariantMap:
            return level <= Bounds::propertyListDepth && addDictionary(parent, value.toMap(), level);
        case QMetaType::QVariantList:
        case QMetaType::QStringList:
            return level <= Bounds::propertyListDepth && addArray(parent, value.toList(), level);
        default:
            return addScalar(parent, value);
        }
    }

private:
    bool addDictionary(pugi::xml_node parent, const QVariantMap& entries, int level)
    {
        const auto dictionary = parent.append_child("dict");
        for (auto entry = entries.begin(); entry != entries.end(); ++entry)
            if (!addText(dictionary, "key", entry.key()) || !add(dictionary, entry.value(), level + 1))
                return false;
        return dictionary;
    }

    bool addArray(pugi::xml_node parent, const QVariantList& values, int level)
    {
        const auto array = parent.append_child("array");
        const auto isAdded = [&](const QVariant& value) { return add(array, value, level + 1); };
        return array && std::ranges::all_of(values, isAdded);
    }

    bool addScalar(pugi::xml_node parent, const QVariant& value)
    {
        switch (value.typeId()) {
        case QMetaType::QString:
            return addText(parent, "string", value.toString());
        case QMetaType::Bool:
            return parent.append_child(value.toBool() ? "true" : "false");
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            return addText(parent, "integer", value.toString());
        case QMetaType::Float:
        case QMetaType::Double:
            return addText(parent, "real", realText(value.toDouble()));
        case QMetaType::QByteArray:
            return addText(parent, "data", QString::fromLatin1(value.toByteArray().toBase64()));
        case QMetaType::QDateTime:
            return addDate(parent, value.toDateTime().toUTC());
        default:
            return false;
        }
    }

    bool addDate(pugi::xml_node parent, const QDateTime& moment)
    {
        const int year = moment.date().year();
        return moment.isValid() && year >= 1 && year <= 9999 &&
               addText(parent, "date", moment.toString(u"yyyy-MM-dd'T'HH:mm:ss'Z'"_s));
    }

    bool addText(pugi::xml_node parent, const char* kind, const QString& content)
    {
        if (!canBeXml(content)) return false;
        auto text = parent.append_child(kind).append_child(pugi::node_pcdata);
        return text.set_value(escaped(content).toUtf8().constData());
    }
};

/// Where pugixml writes to.
class Bytes final : public pugi::xml_writer {
public:
    void write(const void* data, std::size_t size) override
    {
        m_bytes.append(static_cast<const char*>(data), qsizetype(size));
    }
    [[nodiscard]] QByteArray take() { return std::move(m_bytes); }

private:
    QByteArray m_bytes{"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"};
};

} // namespace

std::optional<QByteArray> xmlPropertyList(const QVariant& root)
{
    pugi::xml_document document;
    document.append_child(pugi::node_doctype)
        .set_value("plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                   "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\"");
    auto plist = document.append_child("plist");
    plist.append_attribute("version") = "1.0";
    if (!Writer().add(plist, root, 1)) return {};
    Bytes bytes;
    const auto format = pugi::format_indent | pugi::format_no_declaration | pugi::format_no_escapes;
    document.save(bytes, "\t", format, pugi::encoding_utf8);
    QByteArray written = bytes.take().replace(" />", "/>"); // as others write it; in a text there is no ">"
    return isTooMuchXml(written) ? std::nullopt : std::optional(std::move(written));
}

} // namespace kestro
