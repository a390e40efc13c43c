#include "platform/display/gl/OpenGLRenderer.h"

#include "platform/display/gl/OpenGLDevice.h"
#include "platform/display/gl/QuadProgram.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/BackingStore.h"
#include "platform/display/view/Layer.h"
#include "platform/display/view/LayerCapture.h"
#include "platform/display/view/View.h"
#include "platform/display/view/Window.h"

#include <QWindow>

namespace kestro {

namespace {

/// The pixels of a picture that is larger than any screen could want are not worth their memory.
bool isAbsurd(QSize size)
{
    constexpr qint64 mostPixels = 128LL << 20;
    return size.isEmpty() || qint64{size.width()} * size.height() > mostPixels;
}

/// The picture of anything but a layer.
const QImage& imageOf(const SceneItem& item)
{
    switch (item.kind) {
    case SceneItem::Kind::Shadow:
        return item.shadow;
    case SceneItem::Kind::Held:
        return item.view->heldPicture()->image;
    default:
        return item.window->shownPixels();
    }
}

} // namespace

OpenGLRenderer::OpenGLRenderer(std::shared_ptr<OpenGLDevice> device, Surface& surface)
    : m_device(std::move(device))
    , m_surface(surface)
    , m_canvas(*m_device)
{
}

OpenGLRenderer::~OpenGLRenderer() = default;

OpenGLRenderer::Content& OpenGLRenderer::contentOf(const SceneItem& item)
{
    return m_contents.try_emplace(item.identity, *m_device).first->second;
}

void OpenGLRenderer::follow(const Scene& scene)
{
    std::erase_if(m_contents, [&scene](const auto& entry) { return !scene.find(entry.first); });
    for (const SceneItem& item : scene.items)
        if (item.kind == SceneItem::Kind::Backing)
            contentOf(item).stale += item.painted.translated(-item.rect.topLeft());
}

bool OpenGLRenderer::draw(Scene& scene, const QRegion& damage, QSize size)
{
    if (!makeCurrent() || !m_canvas.makeTarget(size) || m_canvas.size() != size) {
        m_device->lose();
        return false;
    }
    QRegion toPaint = damage;
    while (!prepare(scene, toPaint)) {
        // A layer that had no picture after all was taken from the scene: what it hid is to be painted
        // instead.
    }
    if (m_device->isLost()) return false;
    paint(scene, toPaint);
    show(toPaint);
    return !m_device->isLost();
}

bool OpenGLRenderer::makeCurrent()
{
    QWindow* const window = m_surface.openGLWindow();
    return window ? m_device->makeCurrentOn(*window) : m_device->makeCurrent();
}

bool OpenGLRenderer::prepare(Scene& scene, QRegion& damage)
{
    for (const SceneItem& item : scene.items) {
        if (!item.visible.intersects(damage) || prepareItem(item)) continue;
        damage += scene.remove(item.identity, {QPoint(0, 0), m_canvas.size()});
        return false;
    }
    return true;
}

bool OpenGLRenderer::prepareItem(const SceneItem& item)
{
    Content& content = contentOf(item);
    if (item.kind == SceneItem::Kind::Layer) return renderLayer(item, content);
    const QImage& image = imageOf(item);
    if (image.isNull() || content.key == image.cacheKey()) return true;
    content.texture.upload(image, content.stale.isEmpty() ? QRegion(image.rect()) : content.stale);
    content.key = image.cacheKey();
    content.stale = {};
    return true;
}

bool OpenGLRenderer::renderLayer(const SceneItem& item, Content& content)
{
    const QSize size = item.rect.size();
    if (content.revision == item.revision && content.size == size) return true;
    content.revision = 0;
    if (isAbsurd(size) || !renderFrame(*item.view->layer(), size, content)) return false;
    content.revision = item.revision;
    content.size = size;
    return true;
}

bool OpenGLRenderer::renderFrame(Layer& layer, QSize size, Content& content)
{
    if (layer.drawsWithOpenGL())
        return content.texture.makeTarget(size) && layer.renderWithOpenGL(content.texture.target());
    content.image = kestro::renderLayer(layer, size, std::move(content.image));
    if (content.image.isNull()) return false;
    content.texture.upload(content.image, content.image.rect());
    return true;
}

void OpenGLRenderer::paint(const Scene& scene, const QRegion& damage)
{
    m_device->program().begin(m_canvas.target(), QuadProgram::Top::FirstRow);
    m_device->program().fillBlack(scene.ground & damage, 1);
    for (const SceneItem& item : scene.items) {
        const QRegion region = item.visible & damage;
        if (!region.isEmpty()) paintItem(item, region);
    }
    m_device->program().end();
}

void OpenGLRenderer::paintItem(const SceneItem& item, const QRegion& region)
{
    if (item.kind == SceneItem::Kind::Backing) return paintBacking(item, region);
    const bool isSolid = item.kind == SceneItem::Kind::Layer || !imageOf(item).hasAlphaChannel();
    m_device->program().draw(contentOf(item).texture, item.rect, region, {qMin(item.alpha, 1.0F), isSolid});
}

/// In an opaque window what nobody drew is black, and nothing shines through what somebody drew faintly.
void OpenGLRenderer::paintBacking(const SceneItem& item, const QRegion& region)
{
    const bool isSolid = item.window->isOpaque();
    const float opacity = qMin(item.alpha, 1.0F);
    const QSize size = item.window->shownPixels().size();
    const QRect place(item.rect.topLeft(), size);
    if (isSolid) m_device->program().fillBlack(region - place, opacity);
    if (size.isEmpty()) return;
    m_device->program().draw(contentOf(item).texture, place, region & place, {opacity, isSolid});
}

void OpenGLRenderer::show(const QRegion& changed)
{
    const auto outputs = m_surface.openGLOutputs();
    for (const OpenGLOutput& output : outputs)
        showIn(output);
    if (!outputs.empty()) return;
    QImage& canvas = m_surface.canvas();
    for (const QRect& rect : changed& canvas.rect())
        m_canvas.readInto(canvas, rect);
    m_surface.present(changed);
}

void OpenGLRenderer::showIn(const OpenGLOutput& output)
{
    // Where the window is not there yet, all of it is wanted when it appears.
    if (!output.window->isExposed() || !m_device->makeCurrentOn(*output.window)) return;
    const QRegion whole(QRect({0, 0}, output.pixels));
    m_device->program().begin({m_device->surfaceFramebuffer(), output.pixels.width(), output.pixels.height()},
                              QuadProgram::Top::LastRow);
    m_device->program().fillBlack(whole - output.place, 1);
    m_device->program().draw(m_canvas, output.place, whole & output.place, {1, true});
    m_device->program().end();
    m_device->swap(*output.window);
}

} // namespace kestro
