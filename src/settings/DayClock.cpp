#include "settings/DayClock.h"

#include "settings/PlayTime.h"

namespace kestro {

namespace {

constexpr int usualMorning = 7; // o'clock
constexpr int usualEvening = 19;

} // namespace

bool DayClock::isTimeFor(const PlayTime& time, const QDateTime& moment) const
{
    switch (time.kind) {
    case PlayTime::Kind::Always:
        return true;
    case PlayTime::Kind::Day:
        return isDay(moment);
    case PlayTime::Kind::Night:
        return !isDay(moment);
    case PlayTime::Kind::Hours:
        break;
    }
    const QTime clock = moment.time();
    return isWithinHours(time, clock.hour() * 60 + clock.minute());
}

bool DayClock::isDay(const QDateTime& moment) const
{
    if (m_place) return isSunUp(*m_place, moment);
    const int hour = moment.time().hour();
    return hour >= usualMorning && hour < usualEvening;
}

} // namespace kestro
