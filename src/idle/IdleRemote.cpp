#include "idle/IdleRemote.h"

#include "idle/IdleAddress.h"

#include <QDBusMessage>
#include <QJsonDocument>

#include <utility>

namespace kestro {

namespace {

IdleStatus statusFrom(const QVariantList& words)
{
    return IdleStatus::from(QJsonDocument::fromJson(words.value(0).toString().toUtf8()).object());
}

} // namespace

IdleRemote::IdleRemote(const QDBusConnection& bus)
    : m_service(bus, {IdleAddress::busName, IdleAddress::objectPath, IdleAddress::interfaceName})
{
}

void IdleRemote::status(StatusHandler handler)
{
    m_service.call(QStringLiteral("Status"), {},
                   [handler = std::move(handler)](const BusObject::Answer& answer) {
                       handler(answer ? std::optional(statusFrom(*answer)) : std::nullopt);
                   });
}

void IdleRemote::watch(StatusHandler handler)
{
    m_service.listen(QStringLiteral("Changed"),
                     [handler](const QDBusMessage& message) { handler(statusFrom(message.arguments())); });
    m_service.listenToOwner([this, handler](bool isThere) {
        if (isThere)
            status(handler);
        else
            handler({});
    });
}

void IdleRemote::tell(const QString& method, std::function<void(bool)> handler)
{
    m_service.call(method, {}, [handler = std::move(handler)](const BusObject::Answer& answer) {
        handler(answer.has_value());
    });
}

} // namespace kestro
