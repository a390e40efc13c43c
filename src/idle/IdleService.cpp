#include "idle/IdleService.h"

#include "platform/base/Clock.h"
#include "platform/base/PostTo.h"

#include <utility>

namespace kestro {

IdleService::IdleService(const Clock& clock, Parts parts, std::chrono::seconds after)
    : m_clock(clock)
    , m_parts(std::move(parts))
    , m_after(after)
    , m_machine(clock, {[this] { ask(); }, [this] { startSaver(); }, [this] { m_parts.saver->stop(); }})
{
    m_look.setSingleShot(true);
    m_look.setTimerType(Qt::VeryCoarseTimer);
    QObject::connect(&m_look, &QTimer::timeout, &m_look,
                     [this] { this->after([this] { m_machine.look(); }); });
    for (const auto& fact : m_parts.facts)
        fact->setChangeHandler(
            [this] { this->after([this] { m_machine.hindrancesChanged(hindrances()); }); });
    watch();
}

IdleService::~IdleService() = default;

void IdleService::watch()
{
    m_parts.source->watch(m_after, {[this] { personIdle(); }, [this] { inputHeard(); },
                                    [this] {
                                        if (m_onLost) m_onLost();
                                    }});
}

void IdleService::personIdle()
{
    m_awaySince = m_clock.now();
    if (!m_rival.isEmpty()) return lookForRival(); // it may be gone
    after([this] { m_machine.personIdle(); });
}

void IdleService::personActive()
{
    m_awaySince.reset();
    if (m_onBack) m_onBack();
    after([this] { m_machine.personActive(); });
}

void IdleService::inputHeard()
{
    if (!m_isInputLeft) return personActive();
    m_awaySince.reset();
    if (m_onBack) m_onBack();
    after([this] { m_machine.personStirred(); });
}

void IdleService::standAsideFor(const QString& rival)
{
    if (rival == m_rival) return;
    after([&] {
        m_machine.personActive(); // ends what is shown; and what follows counts from now
        m_rival = rival;
        if (rival.isEmpty()) watch();
    });
}

void IdleService::setAfter(std::chrono::seconds span)
{
    if (span == m_after) return;
    m_after = span;
    watch();
}

void IdleService::show(bool isShown)
{
    after([&] {
        m_machine.hindrancesChanged(hindrances());
        if (isShown)
            m_machine.showNow();
        else
            m_machine.personActive();
    });
}

void IdleService::simulateActivity()
{
    personActive();
    watch();
}

void IdleService::lookForRival()
{
    m_parts.rivals->ask([this] {
        if (m_onChange) m_onChange();
    });
}

double IdleService::idleSeconds() const
{
    if (!m_awaySince) return 0;
    return double(m_after.count()) + m_clock.now() - *m_awaySince;
}

/// Whatever happens goes this way: then it is told that the status may have changed, and when to look again.
void IdleService::after(const std::function<void()>& step)
{
    step();
    if (const auto seconds = m_machine.secondsToLook())
        m_look.start(std::chrono::milliseconds(qint64(*seconds * 1000)));
    else
        m_look.stop();
    if (m_onChange) m_onChange();
}

void IdleService::ask()
{
    const unsigned question = ++m_question;
    m_unanswered = m_parts.facts.size() + 2;
    const auto answered = [this, question] {
        if (question != m_question || --m_unanswered > 0) return;
        postTo(m_look, [this, question] {
            if (question == m_question) after([this] { m_machine.answered(hindrances()); });
        });
    };
    for (const auto& fact : m_parts.facts)
        fact->ask(answered);
    m_parts.rivals->ask(answered);
    answered(); // where there are no facts to ask, that is at once
}

void IdleService::startSaver()
{
    m_parts.saver->start(
        [this](bool hasBrokenOff) { after([=, this] { m_machine.saverEnded(hasBrokenOff); }); });
}

QList<Hindrance> IdleService::hindrances() const
{
    QList<Hindrance> all;
    for (const auto& fact : m_parts.facts)
        all += fact->hindrances();
    return all;
}

IdleStatus IdleService::status() const
{
    IdleStatus status;
    status.state = m_machine.state();
    if (status.state != IdleMachine::State::Showing) status.hindrances = hindrances();
    status.lastEnd = m_machine.lastEnd();
    status.crashes = m_machine.crashes();
    status.after = m_after;
    status.source = m_parts.source->name();
    status.rival = m_rival;
    return status;
}

} // namespace kestro
