#pragma once

#include "platform/session/SessionFact.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDeadlineTimer>
#include <QHash>
#include <QObject>
#include <QVariantList>

#include <functional>
#include <optional>

namespace kestro {

/// Where something stands on a bus.
struct BusAddress {
    QString service;
    QString path;
    QString interface;
};

/// Asks for a name on a bus: it comes once those who asked before have given it back. Does not wait for the
/// bus, as Qt would.
void requestName(const QDBusConnection& bus, const QString& name);

/// Gives back a name on a bus. Does not wait for the bus, as Qt would: it may have stopped in the meantime.
void releaseName(const QDBusConnection& bus, const QString& name);

/// One interface of a service on a bus, for those who must never wait for it: each call is answered from the
/// event loop, by nothing where the service is not there, refuses or takes too long. No call starts a service
/// unless that was allowed. After this is destroyed nobody is called any more. Main thread.
/// Tested by AskedFactTest.
class BusObject final : public QObject {
    Q_OBJECT

public:
    using Answer = std::optional<QVariantList>;
    enum class Starting { Never, Allowed };

    BusObject(const QDBusConnection& bus, BusAddress address, Starting starting = Starting::Never);

    [[nodiscard]] const QDBusConnection& bus() const { return m_bus; }

    /// Calls `method`; `onAnswer` is called once, at the latest `until`.
    void call(const QString& method, const QVariantList& arguments,
              std::function<void(const Answer&)> onAnswer,
              QDeadlineTimer until = QDeadlineTimer(SessionFact::patience));
    /// Calls a method of another object of this service, likewise.
    void callOn(const QString& path, const QString& interface, const QString& method,
                std::function<void(const Answer&)> onAnswer, QDeadlineTimer until);
    /// Reads the property `name`, likewise.
    void property(const QString& name, std::function<void(const std::optional<QVariant>&)> onAnswer,
                  QDeadlineTimer until = QDeadlineTimer(SessionFact::patience));
    /// Has `handler` called for each signal `name` of this interface, whoever of the service sends it.
    void listen(const QString& name, std::function<void(const QDBusMessage&)> handler);
    /// Has `handler` called when properties of this interface have changed.
    void listenToProperties(std::function<void()> handler);
    /// Has `handler` called when the service comes or goes.
    void listenToOwner(std::function<void(bool isThere)> handler);

private Q_SLOTS:
    void heard(const QDBusMessage& message);

private:
    void send(QDBusMessage message, std::function<void(const Answer&)> onAnswer, QDeadlineTimer until);

    QDBusConnection m_bus;
    BusAddress m_address;
    Starting m_starting;
    QHash<QString, std::function<void(const QDBusMessage&)>> m_handlers; ///< by the signal's name
    QDBusServiceWatcher m_watcher;
};

} // namespace kestro
