#include "platform/plist/XmlPropertyListScalar.h"

#include <QDateTime>
#include <QLocale>

#include <limits>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

// Decimal or, after 0x, hexadecimal.
std::optional<QVariant> integer(const QString& content)
{
    const bool isHex = content.contains(u'x', Qt::CaseInsensitive);
    bool isSigned = false;
    const qlonglong number = content.toLongLong(&isSigned, isHex ? 16 : 10);
    if (isSigned) return QVariant(number);
    bool isUnsigned = false;
    const qulonglong large = content.toULongLong(&isUnsigned, isHex ? 16 : 10);
    return isUnsigned ? std::optional(QVariant(large)) : std::nullopt;
}

std::optional<QVariant> real(const QString& content)
{
    const QString name = content.toLower();
    const double infinity = std::numeric_limits<double>::infinity();
    if (name == "nan"_L1) return QVariant(std::numeric_limits<double>::quiet_NaN());
    if (name == "+infinity"_L1 || name == "infinity"_L1 || name == "+inf"_L1 || name == "inf"_L1)
        return QVariant(infinity);
    if (name == "-infinity"_L1 || name == "-inf"_L1) return QVariant(-infinity);
    bool isNumber = false;
    const double number = QLocale::c().toDouble(content, &isNumber);
    return isNumber ? std::optional(QVariant(number)) : std::nullopt;
}

std::optional<QVariant> date(const QString& content)
{
    const QDateTime moment = QDateTime::fromString(content, Qt::ISODate);
    return moment.isValid() ? std::optional(QVariant(moment.toUTC())) : std::nullopt;
}

std::optional<QVariant> data(const QString& content)
{
    const QByteArray letters = content.simplified().remove(u' ').toLatin1();
    const auto decoded = QByteArray::fromBase64Encoding(letters, QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(QVariant(decoded.decoded)) : std::nullopt;
}

} // namespace

std::optional<QVariant> xmlPropertyListScalar(QLatin1StringView kind, const QString& content)
{
    if (kind == "string"_L1) return QVariant(content);
    if (kind == "true"_L1 || kind == "false"_L1) return QVariant(kind == "true"_L1);
    if (kind == "integer"_L1) return integer(content.trimmed());
    if (kind == "real"_L1) return real(content.trimmed());
    if (kind == "date"_L1) return date(content.trimmed());
    if (kind == "data"_L1) return data(content);
    return {};
}

} // namespace kestro
