#include "platform/display/surface/wayland/LayerShell.h"

#include "platform/display/surface/wayland/WaylandObjects.h"

#include <algorithm>
#include <string_view>
#include <wayland-client.h>
#include <wayland-wlr-layer-shell.h>
#include <wayland-wlr-output-power.h>

namespace kestro {

/// A look at the list of what the compositor has, on a queue of its own: nothing else is heard meanwhile.
struct LayerShell::Search {
    struct Global {
        std::uint32_t id = 0;
        std::uint32_t version = 0;
    };

    explicit Search(wl_display* display)
        : queue(wl_display_create_queue(display))
    {
        auto* const wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display));
        wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue);
        registry = wl_display_get_registry(wrapper);
        wl_proxy_wrapper_destroy(wrapper);
        wl_registry_add_listener(registry, &calls, this);
        wl_display_roundtrip_queue(display, queue);
    }
    ~Search()
    {
        wl_registry_destroy(registry);
        wl_event_queue_destroy(queue);
    }
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    /// The object, heard where Qt hears its own. Null where the compositor has none.
    template <typename Object>
    Object* bind(const Global& global, const wl_interface& interface) const
    {
        if (global.id == 0) return nullptr;
        const auto version = std::min(global.version, static_cast<std::uint32_t>(interface.version));
        auto* const proxy =
            static_cast<wl_proxy*>(wl_registry_bind(registry, global.id, &interface, version));
        wl_proxy_set_queue(proxy, nullptr);
        return reinterpret_cast<Object*>(proxy);
    }

    static void added(void* data, wl_registry*, std::uint32_t id, const char* interface,
                      std::uint32_t version)
    {
        auto& search = *static_cast<Search*>(data);
        const std::string_view name(interface);
        if (name == zwlr_layer_shell_v1_interface.name) search.layers = {id, version};
        if (name == wl_shm_interface.name) search.memory = {id, version};
        if (name == zwlr_output_power_manager_v1_interface.name) search.power = {id, version};
    }
    static void removed(void*, wl_registry*, std::uint32_t) {}
    static constexpr wl_registry_listener calls{added, removed};

    wl_event_queue* queue;
    wl_registry* registry;
    Global layers;
    Global memory;
    Global power;
};

std::unique_ptr<LayerShell> LayerShell::create()
{
    wl_display* const display = waylandDisplay();
    if (!display) return nullptr;
    const Search search(display);
    std::unique_ptr<LayerShell> shell(new LayerShell);
    shell->m_layers = search.bind<zwlr_layer_shell_v1>(search.layers, zwlr_layer_shell_v1_interface);
    shell->m_memory = search.bind<wl_shm>(search.memory, wl_shm_interface);
    shell->m_power =
        search.bind<zwlr_output_power_manager_v1>(search.power, zwlr_output_power_manager_v1_interface);
    return shell->m_layers && shell->m_memory ? std::move(shell) : nullptr;
}

LayerShell::~LayerShell()
{
    if (m_power) zwlr_output_power_manager_v1_destroy(m_power);
    if (m_memory) wl_shm_destroy(m_memory);
    if (!m_layers) return;
    if (zwlr_layer_shell_v1_get_version(m_layers) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION)
        zwlr_layer_shell_v1_destroy(m_layers);
    else
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(m_layers));
}

} // namespace kestro
