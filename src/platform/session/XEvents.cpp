#include "platform/session/XEvents.h"

#include <utility>

namespace kestro {

XConnection openX(const QByteArray& display)
{
    XConnection connection(xcb_connect(display.constData(), nullptr), &xcb_disconnect);
    if (xcb_connection_has_error(connection.get())) return nullptr;
    return connection;
}

xcb_window_t rootOf(const XConnection& connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
}

xcb_atom_t atomOf(const XConnection& connection, std::string_view word)
{
    const auto size = static_cast<std::uint16_t>(word.size());
    const auto atom = xReply(xcb_intern_atom_reply(
        connection.get(), xcb_intern_atom(connection.get(), 1, size, word.data()), nullptr));
    return atom ? atom->atom : xcb_atom_t(XCB_ATOM_NONE);
}

XReply<xcb_get_property_reply_t> propertyOf(const XConnection& connection, xcb_window_t window,
                                            xcb_atom_t property, std::uint32_t most)
{
    if (property == XCB_ATOM_NONE) return xReply<xcb_get_property_reply_t>(nullptr);
    const auto asked =
        xcb_get_property(connection.get(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, most);
    auto reply = xReply(xcb_get_property_reply(connection.get(), asked, nullptr));
    if (reply && reply->type == XCB_NONE) reply.reset();
    return reply;
}

XEvents::XEvents(XConnection connection, Handlers handlers)
    : m_connection(std::move(connection))
    , m_handlers(std::move(handlers))
    , m_notifier(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { read(); });
}

XEvents::~XEvents()
{
    *m_isThere = false;
}

void XEvents::read()
{
    const auto isThere = m_isThere;
    const auto handlers = m_handlers;
    while (const auto event = xReply(xcb_poll_for_event(m_connection.get()))) {
        handlers.onEvent(*event);
        if (!*isThere) return;
    }
    if (!xcb_connection_has_error(m_connection.get())) return;
    m_notifier.setEnabled(false); // a closed connection can be read for ever
    handlers.onLost();
}

} // namespace kestro
