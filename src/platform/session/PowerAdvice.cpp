#include "platform/session/PowerAdvice.h"

#include "platform/base/DetachedTask.h"
#include "platform/session/PowerWatch.h"

#include <utility>

namespace kestro {

PowerAdvice::PowerAdvice(const PowerRule& rule, std::function<QDBusConnection()> connect, Handler onChange)
    : m_rule(rule)
    , m_onChange(std::move(onChange))
    , m_connecting(DetachedTask::start<QDBusConnection>(
          QStringLiteral("the system's bus"), std::chrono::milliseconds(SessionFact::patience),
          std::move(connect), [this](const std::optional<QDBusConnection>& bus) {
              if (bus && bus->isConnected()) watch(*bus);
          }))
{
}

PowerAdvice::~PowerAdvice() = default;

std::function<QDBusConnection()> PowerAdvice::systemBus()
{
    return [] { return QDBusConnection::systemBus(); };
}

void PowerAdvice::watch(const QDBusConnection& bus)
{
    m_watch = std::make_unique<PowerWatch>(bus);
    m_watch->setChangeHandler([this] { update(); });
}

void PowerAdvice::update()
{
    const PowerChoice choice = m_rule.choose(m_watch->state());
    if (std::exchange(m_choice, choice) != choice) m_onChange(choice, m_rule.reason(m_watch->state()));
}

} // namespace kestro
