#include "platform/display/X11Surface.h"

#include "platform/display/X11Connection.h"

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
    m_window.setExposeHandler([this] { appear(); });
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
    if (m_window.isVisible()) m_window.raise();
}

void X11Surface::show()
{
    m_window.show();
    m_window.raise();
    m_stayOnTop = std::make_unique<StayOnTop>(x11Connection(), static_cast<std::uint32_t>(m_window.winId()));
    // The screen is black from now on, even if the program is busy with its start for a while.
    xcb_flush(x11Connection());
}

void X11Surface::present(const QRegion& changed)
{
    if (m_window.isVisible()) m_canvas->put(changed);
}

void X11Surface::appear()
{
    repair();
    takeKeyboard();
}

void X11Surface::takeKeyboard()
{
    // Nobody gives the focus to a window that is not the window manager's, and a window manager may take it
    // back.
    m_window.requestActivate();
    const auto window = static_cast<xcb_window_t>(m_window.winId());
    const auto cookie = xcb_grab_keyboard(x11Connection(), 1, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                          XCB_GRAB_MODE_ASYNC);
    xcb_discard_reply(x11Connection(), cookie.sequence);
    xcb_flush(x11Connection());
}

} // namespace kestro
