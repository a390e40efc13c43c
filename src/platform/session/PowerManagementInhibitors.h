#pragma once

#include "platform/session/AskedFact.h"
#include "platform/session/BusObject.h"

namespace kestro {

/// What programs asked org.freedesktop.PowerManagement for. It is told of the screen on XFCE alone; elsewhere
/// it is asked for what does not concern a saver. Main thread. Tested by InhibitorFactsTest.
class PowerManagementInhibitors final : public AskedFact {
public:
    explicit PowerManagementInhibitors(const QDBusConnection& sessionBus);

private:
    void look(Found found) override;

    BusObject m_service;
};

} // namespace kestro
