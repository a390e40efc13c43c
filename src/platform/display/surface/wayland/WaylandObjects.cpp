#include "platform/display/surface/wayland/WaylandObjects.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>
#include <qpa/qplatformscreen.h>

namespace kestro {

// Of Qt's private classes none but these two are used, and of them virtual functions alone: the library asks
// for no symbol that is there for one release of Qt only.
wl_display* waylandDisplay()
{
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) return nullptr;
    auto* const native = QGuiApplication::platformNativeInterface();
    return native ? static_cast<wl_display*>(native->nativeResourceForIntegration("wl_display")) : nullptr;
}

wl_surface* waylandSurface(QWindow& window)
{
    if (!window.handle()) return nullptr;
    auto* const native = QGuiApplication::platformNativeInterface();
    return static_cast<wl_surface*>(native->nativeResourceForWindow("surface", &window));
}

// Of a stand-in Qt 6.4 would answer with anything.
wl_output* waylandOutput(QScreen& monitor)
{
    if (!monitor.handle() || monitor.handle()->isPlaceholder()) return nullptr;
    auto* const native = QGuiApplication::platformNativeInterface();
    return static_cast<wl_output*>(native->nativeResourceForScreen("output", &monitor));
}

} // namespace kestro
