#include "platform/display/surface/wayland/Overlay.h"

#include "platform/display/surface/wayland/LayerShell.h"
#include "platform/display/surface/wayland/OverlaySurface.h"

namespace kestro {

std::unique_ptr<Overlay> Overlay::create()
{
    auto shell = LayerShell::create();
    if (!shell) return nullptr;
    // Has Qt make no xdg window of one that asks for it by Qt::BypassWindowManagerHint.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    return std::unique_ptr<Overlay>(new Overlay(std::move(shell)));
}

Overlay::Overlay(std::unique_ptr<LayerShell> shell)
    : m_shell(std::move(shell))
{
}

Overlay::~Overlay() = default;

std::unique_ptr<MonitorSurface> Overlay::cover(QScreen& monitor, OpenGL* openGL)
{
    auto surface = std::make_unique<OverlaySurface>(*m_shell, m_letGo, openGL);
    surface->placeOn(monitor);
    return surface;
}

} // namespace kestro
