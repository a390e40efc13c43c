#include "platform/display/surface/wayland/SyncCall.h"

#include "platform/display/surface/wayland/WaylandObjects.h"

#include <cstdint>
#include <utility>
#include <wayland-client.h>

namespace kestro {

struct SyncCall::Listener {
    static void done(void* data, wl_callback*, std::uint32_t) { static_cast<SyncCall*>(data)->m_done(); }
    static constexpr wl_callback_listener calls{done};
};

SyncCall::SyncCall(std::function<void()> done)
    : m_callback(wl_display_sync(waylandDisplay()))
    , m_done(std::move(done))
{
    wl_callback_add_listener(m_callback, &Listener::calls, this);
}

SyncCall::~SyncCall()
{
    wl_callback_destroy(m_callback);
}

} // namespace kestro
