#pragma once

#include "platform/display/scene/Scene.h"
#include "platform/display/scene/ScreenMapping.h"

#include <memory>
#include <vector>

namespace kestro {

class Renderer;
class Surface;

/// Composes the windows of one screen: works out what changed since the picture before and what of it is
/// seen, and has a renderer draw just that into the screen's surface. When the renderer can draw no more, it
/// goes on in software. Owned by its screen. Main thread; pixels from the top left.
class Compositor final {
public:
    /// `renderer` draws into that surface; null to draw in software.
    Compositor(Surface& surface, std::unique_ptr<Renderer> renderer);
    ~Compositor();

    /// Composes and presents what changed of `windows`, bottom to top, on the screen with that frame. Does
    /// nothing when nothing changed.
    void compose(const std::vector<Window*>& windows, const Rect& frame);
    /// The next picture is composed as a whole.
    void invalidate() { m_isWhole = true; }

private:
    [[nodiscard]] bool tryCompose(const std::vector<Window*>& windows, const Rect& frame);
    [[nodiscard]] QRegion changedPart(const Scene& scene, const ScreenMapping& mapping);

    Surface& m_surface;
    std::unique_ptr<Renderer> m_renderer;
    Scene m_scene;
    QSize m_size;
    bool m_isWhole = true;
};

} // namespace kestro
