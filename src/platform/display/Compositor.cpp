#include "platform/display/Compositor.h"

#include "platform/display/AlignedImage.h"
#include "platform/display/BackingStore.h"
#include "platform/display/Layer.h"
#include "platform/display/LayerCapture.h"
#include "platform/display/Surface.h"
#include "platform/display/View.h"
#include "platform/display/Window.h"

#include <QPainter>

#include <algorithm>

namespace kestro {

namespace {

/// Beyond so many rectangles one around them all costs less.
constexpr int mostRects = 32;

/// Where the layer's picture starts in the canvas, when all of it may be written there; null when it may not.
uchar* placeInCanvas(QImage& canvas, const QRect& rect)
{
    const bool fits = rect.left() >= 0 && rect.right() < canvas.width() && rect.top() >= 0 &&
                      rect.bottom() < canvas.height() + Surface::guardRows;
    if (!fits || rect.width() % 2 != 0 || !canvas.isDetached()) return nullptr;
    if (canvas.bytesPerLine() % pixelAlignment != 0) return nullptr;
    uchar* place = canvas.bits() + canvas.bytesPerLine() * rect.top() + qsizetype{rect.left()} * 4;
    return reinterpret_cast<std::uintptr_t>(place) % pixelAlignment == 0 ? place : nullptr;
}

void drawPart(QPainter& painter, const QImage& image, const QRect& place, const QRegion& region)
{
    if (image.size() == place.size()) {
        for (const QRect& rect : region)
            painter.drawImage(rect.topLeft(), image, rect.translated(-place.topLeft()));
        return;
    }
    painter.setClipRegion(region);
    painter.drawImage(place, image, image.rect());
    painter.setClipping(false);
}

/// In an opaque window what nobody drew is black, and nothing shines through what somebody drew faintly: that
/// is what premultiplied pixels show when their alpha is left aside.
QImage withoutAlpha(const QImage& pixels)
{
    return {pixels.constBits(), pixels.width(), pixels.height(), pixels.bytesPerLine(), QImage::Format_RGB32};
}

void paintBacking(QPainter& painter, const SceneItem& item, const QRegion& region)
{
    const QImage& pixels = item.window->shownPixels();
    if (!item.window->isOpaque()) {
        drawPart(painter, pixels, {item.rect.topLeft(), pixels.size()}, region);
        return;
    }
    if (!pixels.isNull())
        drawPart(painter, withoutAlpha(pixels), {item.rect.topLeft(), pixels.size()}, region);
    const QRegion bare = pixels.isNull() ? region : region - QRect(item.rect.topLeft(), pixels.size());
    for (const QRect& rect : bare)
        painter.fillRect(rect, Qt::black);
}

} // namespace

Compositor::Compositor(Surface& surface)
    : m_surface(surface)
{
}

Compositor::~Compositor() = default;

void Compositor::compose(const std::vector<Window*>& windows, const Rect& frame)
{
    const ScreenMapping mapping{frame, m_surface.pixelSize(), m_surface.pixelRatio()};
    Scene scene = makeScene(windows, mapping, m_scene);
    m_damage = changedPart(scene, mapping);
    m_scene = std::move(scene);
    forgetUnusedBuffers();
    if (m_damage.isEmpty()) return;

    QImage& canvas = m_surface.canvas();
    m_toPaint = m_damage;
    renderLayers(canvas);
    paint(canvas);
    m_surface.present(m_damage);
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

void Compositor::renderLayers(QImage& canvas)
{
    m_direct = 0;
    while (!tryDirect(canvas) || !renderBuffers()) {
        // A layer that had no picture after all was taken from the scene: what it hid is to be painted
        // instead.
    }
}

bool Compositor::tryDirect(QImage& canvas)
{
    if (m_direct) return true;
    for (auto item = m_scene.items.rbegin(); item != m_scene.items.rend(); ++item) {
        if (item->kind != SceneItem::Kind::Layer || item->alpha < 1 || !item->visible.intersects(m_toPaint))
            continue;
        uchar* const place = placeInCanvas(canvas, item->rect);
        if (!place) continue;
        const PixelTarget target{place, item->rect.width(), item->rect.height(),
                                 static_cast<int>(canvas.bytesPerLine())};
        if (!item->view->layer()->render(target)) {
            drop(item->identity);
            return false;
        }
        m_direct = item->identity;
        m_buffers.erase(m_direct);
        m_toPaint += item->rect & canvas.rect();
        break;
    }
    return true;
}

bool Compositor::renderBuffers()
{
    for (const SceneItem& item : m_scene.items) {
        if (item.kind != SceneItem::Kind::Layer || item.identity == m_direct) continue;
        if (!item.visible.intersects(m_toPaint) || renderBuffer(item)) continue;
        drop(item.identity);
        return false;
    }
    return true;
}

bool Compositor::renderBuffer(const SceneItem& item)
{
    Buffer& buffer = m_buffers[item.identity];
    if (buffer.revision == item.revision && buffer.image.size() == item.rect.size()) return true;
    buffer.image = renderLayer(*item.view->layer(), item.rect.size(), std::move(buffer.image));
    buffer.revision = item.revision;
    return !buffer.image.isNull();
}

void Compositor::drop(Identity identity)
{
    m_damage += m_scene.find(identity)->visible;
    m_toPaint += m_damage;
    std::erase_if(m_scene.items, [identity](const SceneItem& item) { return item.identity == identity; });
    m_scene.resolveVisibility({QPoint(0, 0), m_size});
}

void Compositor::forgetUnusedBuffers()
{
    std::erase_if(m_buffers, [this](const auto& entry) { return !m_scene.find(entry.first); });
}

void Compositor::paint(QImage& canvas) const
{
    QPainter painter(&canvas);
    for (const QRect& rect : m_scene.ground& m_toPaint)
        painter.fillRect(rect, Qt::black);
    for (const SceneItem& item : m_scene.items) {
        const QRegion region = item.visible & m_toPaint;
        if (item.identity != m_direct && !region.isEmpty()) paintItem(painter, item, region);
    }
}

void Compositor::paintItem(QPainter& painter, const SceneItem& item, const QRegion& region) const
{
    painter.setOpacity(qMin(item.alpha, 1.0F));
    switch (item.kind) {
    case SceneItem::Kind::Backing:
        paintBacking(painter, item, region);
        break;
    case SceneItem::Kind::Layer:
        drawPart(painter, m_buffers.at(item.identity).image, item.rect, region);
        break;
    case SceneItem::Kind::Held:
        drawPart(painter, item.view->heldPicture()->image, item.rect, region);
        break;
    }
    painter.setOpacity(1);
}

} // namespace kestro
