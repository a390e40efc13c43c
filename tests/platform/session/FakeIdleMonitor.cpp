#include "platform/session/FakeIdleMonitor.h"

#include <gtest/gtest.h>
#include <utility>

namespace kestro {

FakeIdleMonitor::FakeIdleMonitor(PrivateBus& bus, BusAddress address, uint firstId)
    : m_connection(bus.connect())
    , m_address(std::move(address))
    , m_nextId(firstId)
{
    if (!m_connection.registerVirtualObject(m_address.path, this) ||
        !m_connection.registerService(m_address.service))
        ADD_FAILURE() << "no fake of " << qPrintable(m_address.service);
}

FakeIdleMonitor::~FakeIdleMonitor()
{
    PrivateBus::disconnect(m_connection, *this);
}

void FakeIdleMonitor::stayAway()
{
    for (const uint id : m_idle.keys()) {
        m_idleTime = std::max(m_idleTime, m_idle.value(id));
        fire(id);
    }
}

void FakeIdleMonitor::act()
{
    m_idleTime = 0;
    for (const uint id : std::exchange(m_active, {}))
        fire(id);
}

void FakeIdleMonitor::fire(uint id)
{
    auto signal = QDBusMessage::createTargetedSignal(m_receivers.value(id), m_address.path,
                                                     m_address.interface, QStringLiteral("WatchFired"));
    signal << id;
    m_connection.send(signal);
}

bool FakeIdleMonitor::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    m_calls << message.member();
    if (m_hangs) return true;
    return connection.send(message.createReply(answer(message)));
}

QVariantList FakeIdleMonitor::answer(const QDBusMessage& message)
{
    if (message.member() == QStringLiteral("GetIdletime")) return {m_idleTime};
    if (message.member() == QStringLiteral("RemoveWatch")) {
        const uint id = message.arguments().value(0).toUInt();
        m_idle.remove(id);
        m_active.removeAll(id);
        return {};
    }
    const uint id = m_nextId++;
    m_receivers.insert(id, message.service());
    if (message.member() == QStringLiteral("AddIdleWatch"))
        m_idle.insert(id, message.arguments().value(0).toULongLong());
    else
        m_active << id;
    return {id};
}

} // namespace kestro
