#include "platform/display/surface/MonitorSurface.h"

#include "platform/display/gl/OpenGL.h"
#include "platform/display/surface/BackingStoreSurface.h"
#include "platform/display/surface/wayland/Overlay.h"
#include "platform/display/surface/x11/X11Surface.h"

#include <QGuiApplication>
#include <QScreen>

namespace kestro {

MonitorSurface::MonitorSurface(Qt::WindowFlags flags, OpenGL* openGL)
    : m_window(flags | Qt::WindowStaysOnTopHint)
    , m_isForOpenGL(openGL != nullptr)
{
    if (openGL) openGL->prepare(m_window);
    m_window.setInputHandler([this](const InputEvent& event) { tell(event); });
}

QRect MonitorSurface::placeOf(const QScreen& monitor) const
{
    return monitor.geometry();
}

void MonitorSurface::setCursorHidden(bool hidden)
{
    m_window.setCursor(hidden ? Qt::BlankCursor : Qt::ArrowCursor);
}

void MonitorSurface::repair()
{
    if (!m_isForOpenGL) return present(QRect({0, 0}, pixelSize()));
    if (m_onRepair) m_onRepair();
}

std::unique_ptr<MonitorSurface> makeMonitorSurface(QScreen& monitor, OpenGL* openGL, Overlay* overlay)
{
    if (overlay) return overlay->cover(monitor, openGL);
    std::unique_ptr<MonitorSurface> surface = X11Surface::create(monitor, openGL);
    if (!surface) {
        surface = std::make_unique<BackingStoreSurface>(Qt::WindowFlags(), openGL);
        surface->placeOn(monitor);
    }
    return surface;
}

} // namespace kestro
