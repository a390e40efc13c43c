#include "settings/PlayTime.h"

#include <QRegularExpression>

namespace kestro {

namespace {

constexpr int minutesPerHour = 60;
constexpr int minutesPerDay = 24 * minutesPerHour;

const QString dayWord = QStringLiteral("day");
const QString nightWord = QStringLiteral("night");

/// Minutes since midnight, 0 to 1440; nothing for any other text.
std::optional<int> minuteIn(const QString& hours, const QString& minutes)
{
    const int past = minutes.isEmpty() ? 0 : minutes.toInt();
    const int minute = hours.toInt() * minutesPerHour + past;
    return past < minutesPerHour && minute <= minutesPerDay ? std::optional(minute) : std::nullopt;
}

QString clockText(int minute)
{
    return QStringLiteral("%1:%2")
        .arg(minute / minutesPerHour, 2, 10, QLatin1Char('0'))
        .arg(minute % minutesPerHour, 2, 10, QLatin1Char('0'));
}

} // namespace

std::optional<PlayTime> playTimeFrom(const QString& word)
{
    if (word == dayWord) return PlayTime{.kind = PlayTime::Kind::Day};
    if (word == nightWord) return PlayTime{.kind = PlayTime::Kind::Night};
    static const QRegularExpression hours(QStringLiteral(R"(^(\d\d?)(?::(\d\d))?-(\d\d?)(?::(\d\d))?$)"));
    const auto match = hours.match(word);
    if (!match.hasMatch()) return {};
    const auto from = minuteIn(match.captured(1), match.captured(2));
    const auto to = minuteIn(match.captured(3), match.captured(4));
    if (!from || !to || *from % minutesPerDay == *to % minutesPerDay) return {};
    return PlayTime{PlayTime::Kind::Hours, *from % minutesPerDay, *to % minutesPerDay};
}

QString textOf(const PlayTime& time)
{
    switch (time.kind) {
    case PlayTime::Kind::Always:
        return {};
    case PlayTime::Kind::Day:
        return dayWord;
    case PlayTime::Kind::Night:
        return nightWord;
    case PlayTime::Kind::Hours:
        break;
    }
    return clockText(time.from) + u'-' + clockText(time.to);
}

bool isWithinHours(const PlayTime& time, int minute)
{
    const bool hasBegun = minute >= time.from;
    const bool isBeforeEnd = minute < time.to;
    return time.from < time.to ? hasBegun && isBeforeEnd : hasBegun || isBeforeEnd;
}

} // namespace kestro
