#pragma once

#include "platform/display/scene/Renderer.h"
#include "platform/display/scene/Scene.h"

#include <QImage>

#include <unordered_map>

class QPainter;

namespace kestro {

class Surface;

/// Draws into the surface's canvas, without any help of a graphics card: where it can, moving content
/// straight into the canvas. Owned by the compositor. Main thread.
class SoftwareRenderer final : public Renderer {
public:
    explicit SoftwareRenderer(Surface& surface);
    ~SoftwareRenderer() override;

    void follow(const Scene& scene) override;
    bool draw(Scene& scene, const QRegion& damage, QSize canvas) override;

private:
    /// A layer's newest picture at its size on the screen.
    struct Buffer {
        QImage image;
        Identity revision = 0;
    };

    void renderLayers(Scene& scene, QImage& canvas);
    [[nodiscard]] bool tryDirect(Scene& scene, QImage& canvas);
    [[nodiscard]] bool renderBuffers(Scene& scene);
    [[nodiscard]] bool renderBuffer(const SceneItem& item);
    void drop(Scene& scene, Identity identity);
    void paint(const Scene& scene, QImage& canvas) const;
    void paintItem(QPainter& painter, const SceneItem& item, const QRegion& region) const;

    Surface& m_surface;
    std::unordered_map<Identity, Buffer> m_buffers;

    // of the picture being composed
    QSize m_size;
    QRegion m_damage;      ///< what may look different and is presented
    QRegion m_toPaint;     ///< the same, and what content rendered straight into the canvas spilled over
    Identity m_direct = 0; ///< the layer that was rendered straight into the canvas
};

} // namespace kestro
