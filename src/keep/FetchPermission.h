#pragma once

#include "platform/session/MeteredWatch.h"
#include "platform/session/PowerWatch.h"

#include <QString>

#include <functional>

namespace kestro {

/// Whether movies may be fetched ahead now: not on battery, and not where the connection costs by the byte or
/// where NetworkManager does not know that; without any NetworkManager they may. Owned by the keeper's
/// process. Main thread.
class FetchPermission final {
public:
    /// `onChange` is called from the event loop each time that it becomes another.
    FetchPermission(const QDBusConnection& systemBus, std::function<void(bool isGiven)> onChange);

    /// Not before power and network were asked.
    [[nodiscard]] bool isGiven() const { return m_isGiven; }

private:
    void update();
    [[nodiscard]] QString obstacle() const;

    PowerWatch m_power;
    MeteredWatch m_network;
    std::function<void(bool)> m_onChange;
    bool m_knowsPower = false;
    bool m_isGiven = false;
};

} // namespace kestro
