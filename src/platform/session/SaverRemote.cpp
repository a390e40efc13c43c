#include "platform/session/SaverRemote.h"

#include "platform/session/SaverAddress.h"

#include <QDBusArgument>

#include <utility>

namespace kestro {

SaverRemote::SaverRemote(const QDBusConnection& bus)
    : m_service(bus, {SaverAddress::busName, SaverAddress::objectPath, SaverAddress::interfaceName})
{
}

void SaverRemote::now(std::function<void(const std::optional<MovieNow>&)> handler)
{
    m_service.property(QStringLiteral("Now"),
                       [handler = std::move(handler)](const std::optional<QVariant>& value) {
                           if (!value) return handler({});
                           handler(MovieNow::from(qdbus_cast<QVariantMap>(*value)));
                       });
}

// One that ends may be gone before its answer is: so whether it is there is asked before.
void SaverRemote::tell(const QString& method, std::function<void(bool)> handler)
{
    now([this, method, handler = std::move(handler)](const std::optional<MovieNow>& now) {
        if (!now) return handler(false);
        m_service.call(method, {}, [handler](const BusObject::Answer&) { handler(true); });
    });
}

} // namespace kestro
