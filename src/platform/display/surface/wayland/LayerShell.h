#pragma once

#include <cstdint>
#include <memory>

struct wl_display;
struct wl_registry;
struct wl_shm;
struct zwlr_layer_shell_v1;
struct zwlr_output_power_manager_v1;

namespace kestro {

/// What a compositor has for surfaces that lie over the whole desk: layers, memory for their pictures, and
/// word of the power of their outputs. An object of the application's own connection. Owned by the overlay;
/// goes before the application does. Main thread. Tested by test_overlay.
class LayerShell final {
public:
    /// Asks the compositor and waits for the answer. Null where the desktop is not Wayland, or its compositor
    /// has no layers.
    [[nodiscard]] static std::unique_ptr<LayerShell> create();
    ~LayerShell();
    LayerShell(const LayerShell&) = delete;
    LayerShell& operator=(const LayerShell&) = delete;

    [[nodiscard]] zwlr_layer_shell_v1* layers() const { return m_layers; }
    [[nodiscard]] wl_shm* memory() const { return m_memory; }
    /// Null where the compositor tells nobody of it.
    [[nodiscard]] zwlr_output_power_manager_v1* power() const { return m_power; }

private:
    struct Search; ///< what the library calls
    LayerShell() = default;

    zwlr_layer_shell_v1* m_layers = nullptr;
    wl_shm* m_memory = nullptr;
    zwlr_output_power_manager_v1* m_power = nullptr;
};

} // namespace kestro
