#pragma once

#include "platform/session/BusObject.h"
#include "platform/session/PrivateBus.h"

#include <QMap>

namespace kestro {

/// An idle monitor as GNOME's and Cinnamon's compositors have it on the session bus, whose person does what a
/// test says: a watch of being idle stays and fires each time, one of activity fires once, and who watches is
/// told alone. Leaves the bus with its end.
class FakeIdleMonitor final : public QDBusVirtualObject {
public:
    FakeIdleMonitor(PrivateBus& bus, BusAddress address, uint firstId = 1);
    ~FakeIdleMonitor() override;

    /// The person has been away for so long now, with nothing told.
    void pass(qulonglong milliseconds) { m_idleTime = milliseconds; }
    /// The person does nothing until every watch has fired.
    void stayAway();
    /// The person is there.
    void act();
    /// From now on no call is answered.
    void hang() { m_hangs = true; }

    [[nodiscard]] QList<qulonglong> idleSpans() const { return m_idle.values(); }
    [[nodiscard]] qsizetype activeWatches() const { return m_active.size(); }
    [[nodiscard]] int count(const QString& method) const { return int(m_calls.count(method)); }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString&) const override { return {}; }

private:
    QVariantList answer(const QDBusMessage& message);
    void fire(uint id);

    QDBusConnection m_connection;
    BusAddress m_address;
    uint m_nextId;
    QMap<uint, qulonglong> m_idle; ///< the spans of the watches of being idle
    QList<uint> m_active;
    QMap<uint, QString> m_receivers; ///< who asked for a watch
    QStringList m_calls;
    qulonglong m_idleTime = 0;
    bool m_hangs = false;
};

} // namespace kestro
