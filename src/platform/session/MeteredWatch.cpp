#include "platform/session/MeteredWatch.h"

#include <utility>

namespace kestro {

namespace {

const QString busName = QStringLiteral("org.freedesktop.DBus");
const QString managerName = QStringLiteral("org.freedesktop.NetworkManager");

// NetworkManager's numbers: 1 yes, 2 no, 3 yes by a guess, 4 no by a guess; all others do not say.
MeteredWatch::State stateOf(const std::optional<QVariant>& metered)
{
    switch (metered ? metered->toUInt() : 0) {
    case 1:
    case 3:
        return MeteredWatch::State::Metered;
    case 2:
    case 4:
        return MeteredWatch::State::Free;
    default:
        return MeteredWatch::State::Unknown;
    }
}

} // namespace

MeteredWatch::MeteredWatch(const QDBusConnection& systemBus)
    : m_bus(systemBus, {busName, QStringLiteral("/org/freedesktop/DBus"), busName})
    , m_manager(systemBus, {managerName, QStringLiteral("/org/freedesktop/NetworkManager"), managerName})
{
    m_manager.listenToProperties([this] { read(); });
    m_manager.listenToOwner([this](bool) { ask(); });
    ask();
}

void MeteredWatch::ask()
{
    m_bus.call(QStringLiteral("NameHasOwner"), {managerName}, [this](const BusObject::Answer& answer) {
        const bool isThere = answer && answer->value(0).toBool();
        if (isThere) return read();
        become(State::Nobody);
    });
}

void MeteredWatch::read()
{
    m_manager.property(QStringLiteral("Metered"),
                       [this](const std::optional<QVariant>& metered) { become(stateOf(metered)); });
}

void MeteredWatch::become(State state)
{
    if (std::exchange(m_state, state) != state && m_onChange) m_onChange();
}

} // namespace kestro
