#include "platform/display/surface/wayland/LayerRole.h"

#include "platform/display/surface/wayland/LayerShell.h"

#include <utility>
#include <wayland-client.h>
#include <wayland-wlr-layer-shell.h>

namespace kestro {

namespace {

constexpr std::uint32_t allEdges = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                                   ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
constexpr std::int32_t overPanels = -1;

/// A size on the wire has no sign.
QSize sizeOf(std::uint32_t width, std::uint32_t height)
{
    return {static_cast<int>(width), static_cast<int>(height)};
}

} // namespace

struct LayerRole::Listener {
    static void configured(void* data, zwlr_layer_surface_v1*, std::uint32_t serial, std::uint32_t width,
                           std::uint32_t height)
    {
        auto& role = *static_cast<LayerRole*>(data);
        role.m_serial = serial;
        role.m_size = sizeOf(width, height);
        if (std::exchange(role.m_isToSettle, true)) return;
        QMetaObject::invokeMethod(
            &role.m_turn, [&role] { role.settle(); }, Qt::QueuedConnection);
    }
    static void closed(void* data, zwlr_layer_surface_v1*)
    {
        auto& role = *static_cast<LayerRole*>(data);
        if (std::exchange(role.m_isClosed, true)) return;
        QMetaObject::invokeMethod(
            &role.m_turn, [&role] { role.close(); }, Qt::QueuedConnection);
    }
    static constexpr zwlr_layer_surface_v1_listener calls{configured, closed};
};

LayerRole::LayerRole(const LayerShell& shell, wl_surface* surface, wl_output* output, Handlers handlers)
    : m_surface(surface)
    , m_layer(zwlr_layer_shell_v1_get_layer_surface(shell.layers(), surface, output,
                                                    ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "kestro"))
    , m_handlers(std::move(handlers))
{
    zwlr_layer_surface_v1_add_listener(m_layer, &Listener::calls, this);
    zwlr_layer_surface_v1_set_anchor(m_layer, allEdges);
    zwlr_layer_surface_v1_set_exclusive_zone(m_layer, overPanels);
    claimKeyboard();
}

LayerRole::~LayerRole()
{
    zwlr_layer_surface_v1_destroy(m_layer);
}

void LayerRole::claimKeyboard()
{
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_layer,
                                                     ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE);
    wl_surface_commit(m_surface);
}

void LayerRole::claimKeyboardAnew()
{
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_layer,
                                                     ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE);
    wl_surface_commit(m_surface);
    claimKeyboard();
}

void LayerRole::settle()
{
    m_isToSettle = false;
    if (m_isClosed) return;
    zwlr_layer_surface_v1_ack_configure(m_layer, m_serial);
    // What is drawn may have the size already: then nothing else would bring the answer there.
    wl_surface_commit(m_surface);
    const auto configured = m_handlers.configured; // copied: it may destroy this
    configured(m_size);
}

void LayerRole::close()
{
    const auto closed = m_handlers.closed; // copied: it may destroy this
    closed();
}

} // namespace kestro
