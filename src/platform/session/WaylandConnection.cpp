#include "platform/session/WaylandConnection.h"

#include <algorithm>
#include <cerrno>
#include <utility>
#include <wayland-client.h>

namespace kestro {

struct WaylandConnection::Listener {
    static void added(void* data, wl_registry*, std::uint32_t id, const char* interface,
                      std::uint32_t version)
    {
        auto& connection = *static_cast<WaylandConnection*>(data);
        const auto& global = connection.m_globals.emplace_back(Global{id, interface, version});
        if (connection.m_handlers.onAdded) connection.m_handlers.onAdded(global);
    }
    static void removed(void* data, wl_registry*, std::uint32_t id)
    {
        auto& connection = *static_cast<WaylandConnection*>(data);
        std::erase_if(connection.m_globals, [id](const Global& global) { return global.id == id; });
        if (connection.m_handlers.onRemoved) connection.m_handlers.onRemoved(id);
    }
    static constexpr wl_registry_listener calls{added, removed};
};

std::shared_ptr<WaylandConnection> WaylandConnection::open(const QByteArray& display)
{
    wl_display* const opened = wl_display_connect(display.constData());
    if (!opened) return nullptr;
    std::shared_ptr<WaylandConnection> connection(new WaylandConnection(opened));
    if (!connection->awaitAnswers()) return nullptr;
    return connection;
}

WaylandConnection::WaylandConnection(wl_display* display)
    : m_display(display)
    , m_registry(wl_display_get_registry(display))
{
    wl_registry_add_listener(m_registry, &Listener::calls, this);
}

WaylandConnection::~WaylandConnection()
{
    wl_registry_destroy(m_registry);
    wl_display_disconnect(m_display);
}

const WaylandConnection::Global* WaylandConnection::find(std::string_view interface) const
{
    const auto found = std::ranges::find_if(m_globals, [interface](const Global& global) {
        return std::string_view(global.interface) == interface;
    });
    return found == m_globals.end() ? nullptr : &*found;
}

wl_proxy* WaylandConnection::bind(const Global& global, const wl_interface& interface) const
{
    const auto version = std::min(global.version, static_cast<std::uint32_t>(interface.version));
    return static_cast<wl_proxy*>(wl_registry_bind(m_registry, global.id, &interface, version));
}

bool WaylandConnection::awaitAnswers()
{
    return wl_display_roundtrip(m_display) >= 0;
}

void WaylandConnection::startReading(Handlers handlers)
{
    m_handlers = std::move(handlers);
    m_notifier = std::make_unique<QSocketNotifier>(wl_display_get_fd(m_display), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { read(); });
}

void WaylandConnection::stopReading()
{
    m_handlers = {};
    m_notifier.reset();
}

void WaylandConnection::flush()
{
    // A compositor that reads nothing gets the rest with what is sent next; one that is gone is seen by
    // read().
    wl_display_flush(m_display);
}

void WaylandConnection::read()
{
    while (wl_display_prepare_read(m_display) != 0)
        wl_display_dispatch_pending(m_display);
    const bool hasRead = wl_display_read_events(m_display) == 0 || errno == EAGAIN;
    if (!hasRead || wl_display_dispatch_pending(m_display) < 0) return lose();
    flush();
    const auto onRead = m_handlers.onRead;
    onRead();
}

void WaylandConnection::lose()
{
    m_notifier->setEnabled(false); // a closed connection can be read for ever
    const auto onLost = std::exchange(m_handlers, {}).onLost;
    onLost();
}

} // namespace kestro
