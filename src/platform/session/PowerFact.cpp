#include "platform/session/PowerFact.h"

namespace kestro {

PowerFact::PowerFact(const QDBusConnection& systemBus, const PowerRule& rule)
    : m_watch(systemBus)
    , m_rule(rule)
{
    m_watch.setChangeHandler([this] { update(); });
}

void PowerFact::ask(std::function<void()> onAnswer)
{
    m_watch.refresh(std::move(onAnswer));
}

void PowerFact::setRule(const PowerRule& rule)
{
    m_rule = rule;
    update();
}

void PowerFact::update()
{
    QList<Hindrance> found;
    if (state().lidClosed) found.append({HindranceKind::LidClosed, {}, {}});
    if (m_rule.choose(state()) == PowerChoice::Off)
        found.append({HindranceKind::Battery, {}, m_rule.reason(state())});
    keep(found);
}

} // namespace kestro
