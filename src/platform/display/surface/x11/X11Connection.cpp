#include "platform/display/surface/x11/X11Connection.h"

#include <QGuiApplication>

namespace kestro {

xcb_connection_t* x11Connection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

std::optional<std::uint32_t> rootWindow()
{
    xcb_connection_t* const connection = x11Connection();
    if (!connection) return {};
    const auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    return screens.rem > 0 ? std::optional(screens.data->root) : std::nullopt;
}

ReplyPtr<xcb_get_geometry_reply_t> geometryOf(xcb_connection_t* connection, std::uint32_t window)
{
    return {xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr), &std::free};
}

void makeBackgroundBlack(std::uint32_t window)
{
    const std::uint32_t black = 0;
    xcb_change_window_attributes(x11Connection(), window, XCB_CW_BACK_PIXEL, &black);
}

void listenTo(std::uint32_t window, std::uint32_t events)
{
    xcb_connection_t* const connection = x11Connection();
    const auto cookie = xcb_get_window_attributes(connection, window);
    const ReplyPtr<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, cookie, nullptr), &std::free);
    if (!attributes) return;
    const std::uint32_t all = attributes->your_event_mask | events;
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &all);
}

} // namespace kestro
