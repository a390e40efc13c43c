#include "platform/session/SaverOnBus.h"

#include "platform/base/DetachedTask.h"
#include "platform/base/PostTo.h"
#include "platform/session/BusObject.h"
#include "platform/session/SaverAddress.h"

#include <QDBusVariant>

#include <utility>

namespace kestro {

namespace {

using SaverAddress::busName;
using SaverAddress::interfaceName;
using SaverAddress::objectPath;

const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString nowProperty = QStringLiteral("Now");

const char description[] = R"(<interface name="org.kestro.Saver1">
<method name="Next"/>
<method name="Previous"/>
<method name="Stop"/>
<property name="Now" type="a{sv}" access="read"/>
<signal name="Changed"><arg name="now" type="a{sv}"/></signal>
</interface>
)";

} // namespace

SaverOnBus::SaverOnBus(std::function<QDBusConnection()> connect, Handlers handlers)
    : m_handlers(std::move(handlers))
    , m_connecting(DetachedTask::start<QDBusConnection>(
          QStringLiteral("the session's bus"), std::chrono::milliseconds(SessionFact::patience),
          std::move(connect), [this](const std::optional<QDBusConnection>& bus) {
              if (bus && bus->isConnected()) serve(*bus);
          }))
{
}

SaverOnBus::~SaverOnBus()
{
    if (!m_bus) return;
    m_bus->unregisterObject(objectPath);
    releaseName(*m_bus, busName);
}

std::function<QDBusConnection()> SaverOnBus::sessionBus()
{
    return [] { return QDBusConnection::sessionBus(); };
}

void SaverOnBus::serve(const QDBusConnection& bus)
{
    m_bus = std::make_unique<QDBusConnection>(bus);
    m_bus->registerVirtualObject(objectPath, this);
    requestName(*m_bus, busName);
}

void SaverOnBus::shows(const QUrl& url)
{
    const MovieNow now = url.isEmpty() ? MovieNow() : MovieNow::of(url);
    if (std::exchange(m_now, now) != now && m_bus) tell();
}

void SaverOnBus::tell() const
{
    auto changed = QDBusMessage::createSignal(objectPath, interfaceName, QStringLiteral("Changed"));
    changed.setArguments({m_now.map()});
    m_bus->send(changed);
    auto property =
        QDBusMessage::createSignal(objectPath, propertiesInterface, QStringLiteral("PropertiesChanged"));
    property.setArguments({interfaceName, QVariantMap{{nowProperty, m_now.map()}}, QStringList()});
    m_bus->send(property);
}

bool SaverOnBus::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QString interface = message.interface();
    if (interface == propertiesInterface)
        connection.send(propertyFor(message));
    else if (interface == interfaceName || interface.isEmpty())
        connection.send(answerTo(message));
    else
        return false;
    return true;
}

QDBusMessage SaverOnBus::answerTo(const QDBusMessage& call)
{
    const auto* const handler = handlerOf(call.member());
    if (!handler) return call.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("No such method"));
    if (!call.arguments().isEmpty())
        return call.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("It takes no arguments"));
    postTo(*this, *handler);
    return call.createReply();
}

const std::function<void()>* SaverOnBus::handlerOf(const QString& method) const
{
    if (method == u"Next") return &m_handlers.next;
    if (method == u"Previous") return &m_handlers.previous;
    if (method == u"Stop") return &m_handlers.stop;
    return nullptr;
}

QDBusMessage SaverOnBus::propertyFor(const QDBusMessage& call) const
{
    const QVariantList words = call.arguments();
    const bool isOurs = words.value(0) == interfaceName;
    if (isOurs && call.member() == u"GetAll" && words.size() == 1)
        return call.createReply(QVariantMap{{nowProperty, m_now.map()}});
    if (isOurs && call.member() == u"Get" && words.size() == 2 && words[1] == nowProperty)
        return call.createReply(QVariant::fromValue(QDBusVariant(m_now.map())));
    return call.createErrorReply(QDBusError::AccessDenied, QStringLiteral("Now is all there is to read"));
}

QString SaverOnBus::introspect(const QString&) const
{
    return QString::fromLatin1(description);
}

} // namespace kestro
