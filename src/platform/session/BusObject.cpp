#include "platform/session/BusObject.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <algorithm>

namespace kestro {

namespace {

const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString propertiesChanged = QStringLiteral("PropertiesChanged");

void askDaemon(const QDBusConnection& bus, const QString& method, const QVariantList& arguments)
{
    const auto daemon = QStringLiteral("org.freedesktop.DBus");
    auto message =
        QDBusMessage::createMethodCall(daemon, QStringLiteral("/org/freedesktop/DBus"), daemon, method);
    message.setArguments(arguments);
    bus.send(message);
}

} // namespace

void requestName(const QDBusConnection& bus, const QString& name)
{
    constexpr quint32 inARow = 0;
    askDaemon(bus, QStringLiteral("RequestName"), {name, inARow});
}

void releaseName(const QDBusConnection& bus, const QString& name)
{
    askDaemon(bus, QStringLiteral("ReleaseName"), {name});
}

BusObject::BusObject(const QDBusConnection& bus, BusAddress address, Starting starting)
    : m_bus(bus)
    , m_address(std::move(address))
    , m_starting(starting)
{
}

void BusObject::call(const QString& method, const QVariantList& arguments,
                     std::function<void(const Answer&)> onAnswer, QDeadlineTimer until)
{
    auto message =
        QDBusMessage::createMethodCall(m_address.service, m_address.path, m_address.interface, method);
    message.setArguments(arguments);
    send(std::move(message), std::move(onAnswer), until);
}

void BusObject::callOn(const QString& path, const QString& interface, const QString& method,
                       std::function<void(const Answer&)> onAnswer, QDeadlineTimer until)
{
    send(QDBusMessage::createMethodCall(m_address.service, path, interface, method), std::move(onAnswer),
         until);
}

void BusObject::property(const QString& name, std::function<void(const std::optional<QVariant>&)> onAnswer,
                         QDeadlineTimer until)
{
    auto message = QDBusMessage::createMethodCall(m_address.service, m_address.path, propertiesInterface,
                                                  QStringLiteral("Get"));
    message.setArguments({m_address.interface, name});
    const auto unpack = [onAnswer = std::move(onAnswer)](const Answer& answer) {
        if (!answer || answer->isEmpty()) return onAnswer(std::nullopt);
        onAnswer(qvariant_cast<QDBusVariant>(answer->first()).variant());
    };
    send(std::move(message), unpack, until);
}

void BusObject::send(QDBusMessage message, std::function<void(const Answer&)> onAnswer, QDeadlineTimer until)
{
    if (!m_bus.isConnected()) { // Qt would never tell of such a call
        QMetaObject::invokeMethod(
            this, [onAnswer = std::move(onAnswer)] { onAnswer(Answer()); }, Qt::QueuedConnection);
        return;
    }
    message.setAutoStartService(m_starting == Starting::Allowed);
    const int left = std::max(1, static_cast<int>(until.remainingTime()));
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, left), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [onAnswer = std::move(onAnswer)](QDBusPendingCallWatcher* done) {
                done->deleteLater();
                onAnswer(done->isError() ? Answer() : Answer(done->reply().arguments()));
            });
}

void BusObject::listen(const QString& name, std::function<void(const QDBusMessage&)> handler)
{
    m_handlers.insert(name, std::move(handler));
    m_bus.connect(m_address.service, m_address.path, m_address.interface, name, this,
                  SLOT(heard(QDBusMessage)));
}

void BusObject::listenToProperties(std::function<void()> handler)
{
    m_handlers.insert(propertiesChanged, [handler = std::move(handler)](const QDBusMessage&) { handler(); });
    m_bus.connect(m_address.service, m_address.path, propertiesInterface, propertiesChanged,
                  {m_address.interface}, QString(), this, SLOT(heard(QDBusMessage)));
}

void BusObject::listenToOwner(std::function<void(bool)> handler)
{
    m_watcher.setConnection(m_bus);
    m_watcher.addWatchedService(m_address.service);
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [handler = std::move(handler)](const QString&, const QString&, const QString& owner) {
                handler(!owner.isEmpty());
            });
}

void BusObject::heard(const QDBusMessage& message)
{
    const auto handler = m_handlers.constFind(message.member());
    if (handler != m_handlers.constEnd()) (*handler)(message);
}

} // namespace kestro
