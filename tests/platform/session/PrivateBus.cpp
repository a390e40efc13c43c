#include "platform/session/PrivateBus.h"

#include <QCoreApplication>
#include <QDBusVariant>
#include <QFile>

#include <gtest/gtest.h>

namespace kestro {

namespace {

constexpr int plenty = 20'000; // milliseconds

const char configuration[] =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

PrivateBus::PrivateBus()
{
    const QString file = m_folder.filePath(QStringLiteral("bus.conf"));
    QFile config(file);
    if (!config.open(QIODevice::WriteOnly)) ADD_FAILURE() << "cannot write a configuration for the bus";
    config.write(configuration);
    config.close();
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=") + file, QStringLiteral("--print-address"),
                    QStringLiteral("--nofork"), QStringLiteral("--nopidfile")});
    while (!m_daemon.canReadLine())
        if (!m_daemon.waitForReadyRead(plenty)) break;
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    if (m_address.isEmpty()) ADD_FAILURE() << "no bus: " << m_daemon.readAllStandardError().constData();
}

PrivateBus::~PrivateBus()
{
    for (const QString& name : std::as_const(m_names))
        QDBusConnection::disconnectFromBus(name);
    m_daemon.kill();
    m_daemon.waitForFinished(plenty);
}

QDBusConnection PrivateBus::connect()
{
    static int count = 0;
    m_names.append(QStringLiteral("test-%1").arg(++count));
    return QDBusConnection::connectToBus(m_address, m_names.last());
}

void PrivateBus::disconnect(const QDBusConnection& connection)
{
    QDBusConnection::disconnectFromBus(connection.name());
}

void PrivateBus::disconnect(QDBusConnection& connection, QDBusVirtualObject& object)
{
    connection.unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
    // A call that ends undelivered is answered by its connection: there must be one.
    QCoreApplication::removePostedEvents(&object);
    disconnect(connection);
    connection = QDBusConnection(QString()); // the last one who holds it
}

FakeService::FakeService(PrivateBus& bus, QString name)
    : m_connection(bus.connect())
    , m_name(std::move(name))
{
    if (!m_connection.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath) ||
        !m_connection.registerService(m_name))
        ADD_FAILURE() << "no fake of " << qPrintable(m_name);
}

FakeService::~FakeService()
{
    leave();
}

void FakeService::signal(const QString& path, const QString& interface, const QString& member,
                         const QVariantList& arguments)
{
    auto message = QDBusMessage::createSignal(path, interface, member);
    message.setArguments(arguments);
    m_connection.send(message);
}

void FakeService::signalChange(const QString& path, const QString& interface)
{
    signal(path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
           {interface, QVariantMap(), QStringList()});
}

void FakeService::leave()
{
    PrivateBus::disconnect(m_connection, *this);
}

bool FakeService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const bool isGet = message.member() == QStringLiteral("Get");
    const QString name = isGet ? message.arguments().value(1).toString() : message.member();
    const QString here = message.path() + u' ' + name;
    m_calls.append(isGet ? QStringLiteral("Get ") + name : name);
    if (m_hangs) return true;
    if (isGet) {
        const QVariant value = m_values.value(here, m_values.value(name));
        if (!value.isValid()) return false;
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(value))));
    }
    const QString key = m_answers.contains(here) ? here : name;
    if (!m_answers.contains(key)) return false;
    return connection.send(message.createReply(m_answers.value(key)));
}

QString FakeService::introspect(const QString&) const
{
    return {};
}

} // namespace kestro
