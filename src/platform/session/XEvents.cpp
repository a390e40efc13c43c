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
