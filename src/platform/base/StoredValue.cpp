#include "platform/base/StoredValue.h"

#include <QMetaType>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale.h>
#include <string>

namespace kestro {

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isSign(QChar c)
{
    return c == u'+' || c == u'-';
}

QStringView withoutLeadingSpace(QStringView text)
{
    const auto first = std::find_if_not(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    return text.sliced(first - text.begin());
}

int intFromText(QStringView text)
{
    constexpr qint64 most = std::numeric_limits<int>::max();
    text = withoutLeadingSpace(text);
    const bool isNegative = text.startsWith(u'-');
    if (!text.isEmpty() && isSign(text.front())) text = text.sliced(1);

    qint64 size = 0;
    for (const QChar c : text) {
        if (!isDigit(c) || size > most) break;
        size = size * 10 + (c.unicode() - u'0');
    }
    return static_cast<int>(isNegative ? std::max(-size, -most - 1) : std::min(size, most));
}

qsizetype pastDigits(QStringView text, qsizetype at)
{
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at;
}

qsizetype pastSign(QStringView text, qsizetype at)
{
    return at < text.size() && isSign(text[at]) ? at + 1 : at;
}

// Where an exponent that starts at `at` ends; `at` itself when none starts there.
qsizetype pastExponent(QStringView text, qsizetype at)
{
    if (at >= text.size() || (text[at] != u'e' && text[at] != u'E')) return at;
    const qsizetype digits = pastSign(text, at + 1);
    const qsizetype end = pastDigits(text, digits);
    return end > digits ? end : at;
}

// The decimal number at the start of the text; empty for none. Hexadecimal numbers and names ("nan") are
// none.
QStringView realNumberAtStart(QStringView text)
{
    const qsizetype whole = pastSign(text, 0);
    qsizetype end = pastDigits(text, whole);
    qsizetype digits = end - whole;
    if (end < text.size() && text[end] == u'.') {
        const qsizetype fraction = end + 1;
        end = pastDigits(text, fraction);
        digits += end - fraction;
    }
    return digits == 0 ? QStringView() : text.first(pastExponent(text, end));
}

float nearestFloat(double value)
{
    constexpr double most = std::numeric_limits<float>::max();
    return std::isnan(value) ? 0.0F : static_cast<float>(std::clamp(value, -most, most));
}

float floatFromText(QStringView text)
{
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    const QByteArray number = realNumberAtStart(withoutLeadingSpace(text)).toLatin1();
    return nearestFloat(static_cast<double>(strtof_l(number.constData(), nullptr, plain)));
}

// A number or flag object; zero for any other kind.
double numberObject(const QVariant& stored)
{
    switch (stored.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return stored.toDouble();
    default:
        return 0.0;
    }
}

int wholePart(double value)
{
    if (std::isnan(value)) return 0;
    constexpr double most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, -most - 1.0, most));
}

bool isText(const QVariant& stored)
{
    return stored.typeId() == QMetaType::QString;
}

} // namespace

int intValue(const QVariant& stored)
{
    return isText(stored) ? intFromText(stored.toString()) : wholePart(numberObject(stored));
}

float floatValue(const QVariant& stored)
{
    return isText(stored) ? floatFromText(stored.toString()) : nearestFloat(numberObject(stored));
}

QString storedInt(int value)
{
    return QString::number(value);
}

QString storedFloat(double value)
{
    return QString::number(value, 'f', 6);
}

} // namespace kestro
