#include "platform/display/scene/Compositor.h"

#include "platform/display/scene/SoftwareRenderer.h"
#include "platform/display/surface/Surface.h"

namespace kestro {

namespace {

/// Beyond so many rectangles one around them all costs less.
constexpr int mostRects = 32;

} // namespace

Compositor::Compositor(Surface& surface, std::unique_ptr<Renderer> renderer)
    : m_surface(surface)
    , m_renderer(std::move(renderer))
{
    if (!m_renderer) m_renderer = std::make_unique<SoftwareRenderer>(m_surface);
}

Compositor::~Compositor() = default;

void Compositor::compose(const std::vector<Window*>& windows, const Rect& frame)
{
    if (tryCompose(windows, frame)) return;
    m_surface.leaveOpenGL();
    m_renderer = std::make_unique<SoftwareRenderer>(m_surface);
    invalidate();
    static_cast<void>(tryCompose(windows, frame));
}

bool Compositor::tryCompose(const std::vector<Window*>& windows, const Rect& frame)
{
    const ScreenMapping mapping{frame, m_surface.pixelSize(), m_surface.pixelRatio()};
    Scene scene = makeScene(windows, mapping, m_scene);
    const QRegion damage = changedPart(scene, mapping);
    m_scene = std::move(scene);
    m_renderer->follow(m_scene);
    return damage.isEmpty() || m_renderer->draw(m_scene, damage, mapping.pixels);
}

QRegion Compositor::changedPart(const Scene& scene, const ScreenMapping& mapping)
{
    const bool isWhole = m_isWhole || m_size != mapping.pixels;
    m_isWhole = false;
    m_size = mapping.pixels;
    if (isWhole) return mapping.canvasRect();
    const QRegion changed = sceneDifference(m_scene, scene) & mapping.canvasRect();
    return changed.rectCount() > mostRects ? QRegion(changed.boundingRect()) : changed;
}

} // namespace kestro
