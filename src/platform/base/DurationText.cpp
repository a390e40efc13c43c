#include "platform/base/DurationText.h"

namespace kestro {

QString durationText(qint64 seconds)
{
    const auto two = [](qint64 number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    const QString end = two(seconds % 60);
    if (seconds < 3600) return QString::number(seconds / 60) + u':' + end;
    return QString::number(seconds / 3600) + u':' + two(seconds / 60 % 60) + u':' + end;
}

} // namespace kestro
