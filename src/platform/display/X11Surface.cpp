#include "platform/display/X11Surface.h"

#include <QGuiApplication>
#include <QScreen>

#include <cstdlib>
#include <xcb/xcb.h>

namespace kestro {

namespace {

xcb_connection_t* connection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

} // namespace

std::unique_ptr<X11Surface> X11Surface::create(QScreen& monitor)
{
    if (!connection()) return nullptr;
    std::unique_ptr<X11Surface> surface(new X11Surface);
    surface->cover(monitor);
    const auto window = static_cast<std::uint32_t>(surface->m_window.winId());
    surface->m_canvas = X11Canvas::create(connection(), window, guardRows);
    return surface->m_canvas ? std::move(surface) : nullptr;
}

X11Surface::X11Surface()
    : MonitorSurface(Qt::BypassWindowManagerHint)
{
    m_window.setExposeHandler([this] { appear(); });
}

void X11Surface::cover(QScreen& monitor)
{
    m_window.setScreen(&monitor);
    m_window.setGeometry(monitor.geometry());
    m_window.create();
    // The server itself makes the window black when it appears, before the first picture is there.
    const std::uint32_t black = 0;
    xcb_change_window_attributes(connection(), static_cast<xcb_window_t>(m_window.winId()), XCB_CW_BACK_PIXEL,
                                 &black);
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
    m_stayOnTop = std::make_unique<StayOnTop>(connection(), static_cast<std::uint32_t>(m_window.winId()));
    // The screen is black from now on, even if the program is busy with its start for a while.
    xcb_flush(connection());
}

void X11Surface::present(const QRegion& changed)
{
    if (m_window.isVisible()) m_canvas->put(changed);
}

void X11Surface::appear()
{
    present(QRect({0, 0}, pixelSize()));
    takeKeyboard();
}

void X11Surface::takeKeyboard()
{
    // Nobody gives the focus to a window that is not the window manager's, and a window manager may take it
    // back.
    m_window.requestActivate();
    const auto window = static_cast<xcb_window_t>(m_window.winId());
    const auto cookie = xcb_grab_keyboard(connection(), 1, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                          XCB_GRAB_MODE_ASYNC);
    xcb_discard_reply(connection(), cookie.sequence);
    xcb_flush(connection());
}

} // namespace kestro
