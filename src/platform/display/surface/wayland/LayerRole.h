#pragma once

#include <QObject>
#include <QSize>

#include <cstdint>
#include <functional>

struct wl_output;
struct wl_surface;
struct zwlr_layer_surface_v1;

namespace kestro {

class LayerShell;

/// A surface's place in the overlay layer of an output, from edge to edge, over panels and full-screen
/// windows, with the keyboard for itself. Owned by whoever draws on the surface; goes before that does. Main
/// thread; points. Tested by test_overlay.
class LayerRole final {
public:
    /// Called from the event loop, never from within a call of this class. May destroy it.
    struct Handlers {
        /// The compositor lets the surface be drawn on, in that size; 0 where that is left to the surface. Of
        /// several answers in a row the last one counts.
        std::function<void(QSize)> configured;
        std::function<void()> closed; ///< the surface is shown no more and never will be
    };

    /// The surface must never have been drawn on.
    LayerRole(const LayerShell& shell, wl_surface* surface, wl_output* output, Handlers handlers);
    ~LayerRole();
    LayerRole(const LayerRole&) = delete;
    LayerRole& operator=(const LayerRole&) = delete;

    /// Asks for the keyboard once more: a compositor that gave it elsewhere looks again who is to have it.
    void claimKeyboard();
    /// Wants it no more for a moment, and then again: for a compositor that believes it is there.
    void claimKeyboardAnew();

private:
    struct Listener; ///< what the library calls
    void settle();
    void close();

    wl_surface* m_surface;
    zwlr_layer_surface_v1* m_layer;
    Handlers m_handlers;
    std::uint32_t m_serial = 0; ///< of the last answer
    QSize m_size;               ///< of the last answer
    bool m_isToSettle = false;
    bool m_isClosed = false;
    QObject m_turn; ///< receives the queued calls
};

} // namespace kestro
