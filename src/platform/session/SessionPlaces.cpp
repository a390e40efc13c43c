#include "platform/session/SessionPlaces.h"

namespace kestro {

SessionPlaces SessionPlaces::ofProcess()
{
    return {QDBusConnection::sessionBus(), qgetenv("WAYLAND_DISPLAY"), qgetenv("DISPLAY")};
}

BusAddress busItself()
{
    const auto name = QStringLiteral("org.freedesktop.DBus");
    return {name, QStringLiteral("/org/freedesktop/DBus"), name};
}

} // namespace kestro
