#pragma once

#include "platform/session/AskedFact.h"
#include "platform/session/BusObject.h"

namespace kestro {

/// What programs of this user asked logind for: that the machine is not taken for idle. What other users ask
/// for concerns their sessions. Main thread. Tested by InhibitorFactsTest.
class LogindInhibitors final : public AskedFact {
public:
    /// Of the inhibitors that logind lists, those of `user` count.
    LogindInhibitors(const QDBusConnection& systemBus, unsigned user);

private:
    void look(Found found) override;
    [[nodiscard]] QList<Hindrance> ofUser(const QVariant& list) const;

    BusObject m_logind;
    unsigned m_user;
};

} // namespace kestro
