#pragma once

#include "platform/display/gl/OpenGLTexture.h"
#include "platform/display/scene/Renderer.h"
#include "platform/display/scene/Scene.h"

#include <memory>
#include <unordered_map>

namespace kestro {

class Layer;
class OpenGLDevice;
class Surface;
struct OpenGLOutput;

/// Draws with OpenGL, into a picture of the screen that stays on the graphics card; then shows that in the
/// surface's window, or reads what changed of it back into the surface's canvas. What windows hold is put on
/// the card when drawn, and only where it was painted since; a layer that can draws there itself. Owned by
/// the compositor. Main thread.
class OpenGLRenderer final : public Renderer {
public:
    OpenGLRenderer(std::shared_ptr<OpenGLDevice> device, Surface& surface);
    ~OpenGLRenderer() override;

    void follow(const Scene& scene) override;
    bool draw(Scene& scene, const QRegion& damage, QSize canvas) override;

private:
    /// What one item of the scene shows, on the graphics card.
    struct Content {
        explicit Content(OpenGLDevice& device)
            : texture(device)
        {
        }
        OpenGLTexture texture;
        QRegion stale;         ///< of a backing store: painted since it was put there
        qint64 key = 0;        ///< which state of an image was put there
        Identity revision = 0; ///< of a layer: which of its pictures it is
        QSize size;            ///< of a layer: that it was drawn for
        QImage image;          ///< of a layer that does not draw with OpenGL: its picture
    };

    [[nodiscard]] bool makeCurrent();
    [[nodiscard]] bool prepare(Scene& scene, QRegion& damage);
    [[nodiscard]] bool prepareItem(const SceneItem& item);
    [[nodiscard]] bool renderLayer(const SceneItem& item, Content& content);
    [[nodiscard]] static bool renderFrame(Layer& layer, QSize size, Content& content);
    void paint(const Scene& scene, const QRegion& damage);
    void paintItem(const SceneItem& item, const QRegion& region);
    void paintBacking(const SceneItem& item, const QRegion& region);
    void show(const QRegion& changed);
    void showIn(const OpenGLOutput& output);
    [[nodiscard]] Content& contentOf(const SceneItem& item);

    std::shared_ptr<OpenGLDevice> m_device; ///< shared as OpenGL says
    Surface& m_surface;
    OpenGLTexture m_canvas; ///< the screen's picture
    std::unordered_map<Identity, Content> m_contents;
};

} // namespace kestro
