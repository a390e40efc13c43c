#include "platform/display/surface/x11/X11Surface.h"

#include "platform/display/surface/x11/X11Connection.h"

#include <QScreen>

namespace kestro {

std::unique_ptr<X11Surface> X11Surface::create(QScreen& monitor, OpenGL* openGL)
{
    if (!x11Connection()) return nullptr;
    std::unique_ptr<X11Surface> surface(new X11Surface(openGL));
    surface->cover(monitor);
    const auto window = static_cast<std::uint32_t>(surface->m_window.winId());
    surface->m_canvas = X11Canvas::create(x11Connection(), window, guardRows);
    return surface->m_canvas ? std::move(surface) : nullptr;
}

X11Surface::X11Surface(OpenGL* openGL)
    : MonitorSurface(Qt::BypassWindowManagerHint, openGL)
{
    m_window.setExposeHandler([this] { repair(); });
}

void X11Surface::cover(QScreen& monitor)
{
    m_window.setScreen(&monitor);
    m_window.setGeometry(monitor.geometry());
    m_window.create();
    makeBackgroundBlack(static_cast<std::uint32_t>(m_window.winId()));
}

void X11Surface::placeOn(QScreen& monitor)
{
    cover(monitor);
    if (!m_canvas->resize()) return;
    if (m_stayOnTop) m_stayOnTop->settle();
}

void X11Surface::show()
{
    const auto window = static_cast<std::uint32_t>(m_window.winId());
    m_stayOnTop = std::make_unique<StayOnTop>(x11Connection(), window);
    m_seen = std::make_unique<SeenWatch>(window, window, [this](bool isSeen) { tellSeen(isSeen); });
    m_seen->setWatching(m_isWatched);
    m_window.raise();
    m_window.show();
    // The screen is black from now on, even if the program is busy with its start for a while.
    xcb_flush(x11Connection());
}

void X11Surface::hide()
{
    m_stayOnTop.reset();
    m_seen.reset();
    m_window.hide();
}

void X11Surface::setWatched(bool isWatched)
{
    m_isWatched = isWatched;
    if (m_seen) m_seen->setWatching(isWatched);
}

void X11Surface::present(const QRegion& changed)
{
    if (m_window.isVisible()) m_canvas->put(changed);
}

} // namespace kestro
