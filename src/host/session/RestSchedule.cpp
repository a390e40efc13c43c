#include "host/session/RestSchedule.h"

#include "platform/base/DurationText.h"
#include "platform/base/Log.h"
#include "platform/display/desktop/Timer.h"

#include <utility>

namespace kestro {

namespace {

QString wordsOf(PowerChoice choice, const QString& reason)
{
    const QString why = reason.isEmpty() ? QStringLiteral("on battery") : reason;
    switch (choice) {
    case PowerChoice::Play:
        break;
    case PowerChoice::Still:
        return QStringLiteral("Power is to be saved (%1): one picture stands for the movie.").arg(why);
    case PowerChoice::Off:
        return QStringLiteral("Power is to be saved (%1): black for now.").arg(why);
    }
    return QStringLiteral("Power need not be saved any more: the movie goes on.");
}

Rest restFor(PowerChoice choice)
{
    switch (choice) {
    case PowerChoice::Play:
        return Rest::None;
    case PowerChoice::Still:
        return Rest::Still;
    case PowerChoice::Off:
        return Rest::Off;
    }
    return Rest::None;
}

} // namespace

RestSchedule::RestSchedule(TimerSource& timers, std::function<void(Rest)> onRest)
    : m_timers(timers)
    , m_onRest(std::move(onRest))
{
}

RestSchedule::~RestSchedule() = default;

void RestSchedule::stopAfter(std::chrono::seconds span)
{
    if (span.count() == 0) return;
    m_end = m_timers.repeating(static_cast<double>(span.count()), [this, span] { timeIsOver(span); });
}

void RestSchedule::timeIsOver(std::chrono::seconds span)
{
    logLine(QStringLiteral("Shown for %1: black from now on, so that the displays can sleep.")
                .arg(durationText(span.count())));
    m_isOver = true;
    m_end.reset();
    change();
}

void RestSchedule::setPower(PowerChoice choice, const QString& reason)
{
    if (!m_isOver && choice != m_power) logLine(wordsOf(choice, reason));
    m_power = choice;
    change();
}

void RestSchedule::change()
{
    const Rest next = m_isOver ? Rest::Off : restFor(m_power);
    if (std::exchange(m_rest, next) != next) m_onRest(next);
}

} // namespace kestro
