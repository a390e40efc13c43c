#include "keep/FetchPermission.h"

#include "platform/base/Log.h"

#include <utility>

namespace kestro {

using Network = MeteredWatch::State;

FetchPermission::FetchPermission(const QDBusConnection& systemBus, std::function<void(bool)> onChange)
    : m_power(systemBus)
    , m_network(systemBus)
    , m_onChange(std::move(onChange))
{
    m_power.setChangeHandler([this] { update(); });
    m_network.setChangeHandler([this] { update(); });
    m_power.refresh([this] {
        m_knowsPower = true;
        update();
    });
}

/// Empty for none.
QString FetchPermission::obstacle() const
{
    if (m_power.state().onBattery) return QStringLiteral("the machine runs on its battery");
    if (m_network.state() == Network::Metered) return QStringLiteral("the connection is metered");
    if (m_network.state() == Network::Unknown)
        return QStringLiteral("NetworkManager does not know whether the connection is metered");
    return {};
}

void FetchPermission::update()
{
    if (!m_knowsPower || m_network.state() == Network::Asking) return;
    const QString reason = obstacle();
    if (!reason.isEmpty()) logLine(QStringLiteral("No movies are fetched ahead: %1.").arg(reason));
    const bool isGiven = reason.isEmpty();
    if (std::exchange(m_isGiven, isGiven) != isGiven) m_onChange(isGiven);
}

} // namespace kestro
