#include "idle/IdleMachine.h"

#include "platform/base/Clock.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

/// Of what is against showing a saver, what also ends one that is shown.
std::optional<IdleMachine::End> endOf(const QList<Hindrance>& hindrances)
{
    for (const Hindrance& hindrance : hindrances)
        switch (hindrance.kind) {
        case HindranceKind::Locked:
            return IdleMachine::End::Locked;
        case HindranceKind::Asleep:
            return IdleMachine::End::Asleep;
        case HindranceKind::LidClosed:
            return IdleMachine::End::LidClosed;
        case HindranceKind::Battery:
            return IdleMachine::End::Battery;
        default:
            break;
        }
    return {};
}

bool isLocked(const QList<Hindrance>& hindrances)
{
    return std::ranges::any_of(
        hindrances, [](const Hindrance& hindrance) { return hindrance.kind == HindranceKind::Locked; });
}

/// Ends after which the person may stay away and still see it again: what was against it may pass.
bool mayShowAgain(IdleMachine::End end)
{
    return end == IdleMachine::End::LidClosed || end == IdleMachine::End::Battery;
}

} // namespace

IdleMachine::IdleMachine(const Clock& clock, Actions actions)
    : m_clock(clock)
    , m_actions(std::move(actions))
{
}

void IdleMachine::personIdle()
{
    m_isAway = true;
    if (m_state == State::Active) ask();
}

void IdleMachine::personActive()
{
    m_isAway = false;
    if (m_state == State::Showing) return end(End::PersonBack);
    if (!m_isRunning) m_state = State::Active;
}

void IdleMachine::personStirred()
{
    if (m_state != State::Showing) return personActive();
    m_isAway = false;
}

void IdleMachine::answered(const QList<Hindrance>& hindrances)
{
    if (m_state != State::Asked) return;
    m_hindrances = hindrances;
    m_answeredAt = m_clock.now();
    if (hindrances.isEmpty()) return start();
    m_state = State::Idle;
}

void IdleMachine::hindrancesChanged(const QList<Hindrance>& hindrances)
{
    m_hindrances = hindrances;
    if (m_state == State::Showing) {
        if (const auto why = endOf(hindrances)) end(*why);
    } else if (m_state == State::Idle && hindrances.isEmpty()) {
        ask();
    }
}

void IdleMachine::saverEnded(bool hasBrokenOff)
{
    m_isRunning = false;
    if (m_state != State::Showing) return wentBy(); // it was told to
    if (hasBrokenOff) return brokeOff();
    m_crashes = 0;
    m_lastEnd = End::ByItself;
    wentBy();
}

void IdleMachine::showNow()
{
    if (!m_isRunning && !isLocked(m_hindrances)) start();
}

void IdleMachine::look()
{
    if (m_state == State::Idle) ask();
}

std::optional<double> IdleMachine::secondsToLook() const
{
    if (m_state != State::Idle) return {};
    return std::max(0.0, m_answeredAt + lookEvery - m_clock.now());
}

void IdleMachine::ask()
{
    m_state = State::Asked;
    m_actions.ask();
}

void IdleMachine::start()
{
    m_hindrances.clear();
    m_state = State::Showing;
    m_isRunning = true;
    m_actions.start();
}

void IdleMachine::end(End why)
{
    m_crashes = 0;
    m_lastEnd = why;
    m_state = State::Ended;
    m_actions.stop();
}

/// The saver is gone: what comes next depends on why it went, and on whether the person came meanwhile.
void IdleMachine::wentBy()
{
    if (!m_isAway)
        m_state = State::Active;
    else if (m_lastEnd && mayShowAgain(*m_lastEnd))
        ask();
    else
        m_state = State::Ended;
}

void IdleMachine::brokeOff()
{
    m_lastEnd = End::Crashed;
    if (++m_crashes <= mostRestarts) return start();
    wentBy();
}

} // namespace kestro
