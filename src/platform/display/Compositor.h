#pragma once

#include "platform/display/Scene.h"
#include "platform/display/ScreenMapping.h"

#include <QImage>

#include <unordered_map>
#include <vector>

class QPainter;

namespace kestro {

class Surface;

/// Draws the windows of one screen into its surface, in software: only what changed since the picture before,
/// nothing that something opaque hides, and where it can moving content straight into the surface's pixels.
/// Owned by its screen. Main thread; pixels from the top left.
class Compositor final {
public:
    explicit Compositor(Surface& surface);
    ~Compositor();

    /// Composes and presents what changed of `windows`, bottom to top, on the screen with that frame. Does
    /// nothing when nothing changed.
    void compose(const std::vector<Window*>& windows, const Rect& frame);
    /// The next picture is composed as a whole.
    void invalidate() { m_isWhole = true; }

private:
    /// A layer's newest picture at its size on the screen.
    struct Buffer {
        QImage image;
        Identity revision = 0;
    };

    [[nodiscard]] QRegion changedPart(const Scene& scene, const ScreenMapping& mapping);
    void renderLayers(QImage& canvas);
    [[nodiscard]] bool tryDirect(QImage& canvas);
    [[nodiscard]] bool renderBuffers();
    [[nodiscard]] bool renderBuffer(const SceneItem& item);
    void drop(Identity identity);
    void forgetUnusedBuffers();
    void paint(QImage& canvas) const;
    void paintItem(QPainter& painter, const SceneItem& item, const QRegion& region) const;

    Surface& m_surface;
    Scene m_scene;
    QSize m_size;
    bool m_isWhole = true;
    std::unordered_map<Identity, Buffer> m_buffers;

    // of the picture being composed
    QRegion m_damage;      ///< what may look different and is presented
    QRegion m_toPaint;     ///< the same, and what content rendered straight into the canvas spilled over
    Identity m_direct = 0; ///< the layer that was rendered straight into the canvas
};

} // namespace kestro
