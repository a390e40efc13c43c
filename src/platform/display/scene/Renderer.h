#pragma once

#include <QRegion>
#include <QSize>

namespace kestro {

struct Scene;

/// Draws the scenes of one screen, and shows them in its surface. What is where, what is hidden and what
/// changed is worked out before. Owned by the compositor. Main thread; pixels of the canvas from the top
/// left.
class Renderer {
public:
    virtual ~Renderer() = default;

    /// Hears of each scene, also of one in which nothing changed that is seen: it keeps nothing for what is
    /// in no scene any more.
    virtual void follow(const Scene& scene) = 0;

    /// Draws the part `damage` of the scene, which was followed, and shows it; the rest stays as it is. A
    /// layer that turns out to have no picture after all is taken from the scene, and what it hid is drawn as
    /// well. False when this renderer can draw no more: then nothing was shown.
    [[nodiscard]] virtual bool draw(Scene& scene, const QRegion& damage, QSize canvas) = 0;
};

} // namespace kestro
