#pragma once

#include "platform/session/AskedFact.h"
#include "platform/session/BusObject.h"

namespace kestro {

/// What programs asked Plasma for, by whatever way: that the screen is left as it is. The compositor's own
/// notice of an idle person does not know of it. Main thread. Tested by InhibitorFactsTest.
class PlasmaInhibitors final : public AskedFact {
public:
    explicit PlasmaInhibitors(const QDBusConnection& sessionBus);

private:
    void look(Found found) override;

    BusObject m_agent;
};

} // namespace kestro
