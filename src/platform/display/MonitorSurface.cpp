#include "platform/display/MonitorSurface.h"

#include "platform/display/BackingStoreSurface.h"
#include "platform/display/X11Surface.h"

#include <QGuiApplication>
#include <QScreen>

namespace kestro {

MonitorSurface::MonitorSurface(Qt::WindowFlags flags)
    : m_window(flags | Qt::WindowStaysOnTopHint)
{
    m_window.setInputHandler([this](const InputEvent& event) {
        if (m_onInput) m_onInput(event);
    });
}

void MonitorSurface::setCursorHidden(bool hidden)
{
    m_window.setCursor(hidden ? Qt::BlankCursor : Qt::ArrowCursor);
}

std::unique_ptr<MonitorSurface> makeMonitorSurface(QScreen& monitor)
{
    std::unique_ptr<MonitorSurface> surface = X11Surface::create(monitor);
    if (!surface) {
        surface = std::make_unique<BackingStoreSurface>();
        surface->placeOn(monitor);
    }
    return surface;
}

} // namespace kestro
