#include "host/session/RestSchedule.h"

#include "platform/base/DurationText.h"
#include "platform/base/Log.h"
#include "platform/display/desktop/Timer.h"

#include <utility>

namespace kestro {

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

void RestSchedule::change()
{
    const Rest next = m_isOver ? Rest::Off : Rest::None;
    if (std::exchange(m_rest, next) != next) m_onRest(next);
}

} // namespace kestro
