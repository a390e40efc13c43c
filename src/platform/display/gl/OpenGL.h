#pragma once

#include <functional>
#include <memory>

class QWindow;

namespace kestro {

struct FramebufferTarget;
struct PixelTarget;
class Renderer;
class Surface;

/// The connection to the display server, as the drivers of video decoders know it. Null is what there is none
/// of.
struct DisplayConnection {
    void* x11 = nullptr;     ///< a Display of Xlib
    void* wayland = nullptr; ///< a wl_display
};

/// The OpenGL that a process draws with: one context for all its screens and movies, so that what one of them
/// has put on the graphics card is there for the others. Shared by the desktop that chose it, its renderers
/// and the players that draw with it, each of which has to free with it what it made. Main thread.
class OpenGL {
public:
    virtual ~OpenGL() = default;

    /// Whether a graphics card does the work, which then may decode movies too.
    [[nodiscard]] virtual bool isHardware() const = 0;
    /// Whether it can draw no more. It never comes back.
    [[nodiscard]] virtual bool isLost() const = 0;
    /// Makes the context this thread's current one, on whatever surface. False once it is lost.
    virtual bool makeCurrent() = 0;
    /// The entry point of that name, null when there is none. The context is to be current.
    [[nodiscard]] virtual void* function(const char* name) const = 0;
    /// The display that it shows pictures on. A decoder on the card needs it to hand frames over without a
    /// copy.
    [[nodiscard]] virtual DisplayConnection display() const = 0;

    using Draw = std::function<bool(const FramebufferTarget&)>;
    /// Has `draw` draw with OpenGL, and writes that into the target. False, with the target untouched, when
    /// it did not draw or the context is lost.
    virtual bool renderToMemory(const PixelTarget& target, const Draw& draw) = 0;

    /// Makes a native window one that pictures can be shown in, before it is created.
    virtual void prepare(QWindow& window) = 0;
    /// What composes a screen's picture with this and shows it in the surface, which must outlive it.
    [[nodiscard]] virtual std::unique_ptr<Renderer> makeRenderer(Surface& surface) = 0;
};

} // namespace kestro
