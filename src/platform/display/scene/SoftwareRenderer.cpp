#include "platform/display/scene/SoftwareRenderer.h"

#include "platform/display/surface/Surface.h"
#include "platform/display/view/AlignedImage.h"
#include "platform/display/view/BackingStore.h"
#include "platform/display/view/Layer.h"
#include "platform/display/view/LayerCapture.h"
#include "platform/display/view/View.h"
#include "platform/display/view/Window.h"

#include <QPainter>

#include <algorithm>

namespace kestro {

namespace {

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

/// Copies opaque pixels as they are, where both sides are of the same kind.
bool copyPart(QPainter& painter, const QImage& image, const QRect& place, const QRegion& region)
{
    auto& canvas = static_cast<QImage&>(*painter.device());
    const bool isPlain = image.format() == QImage::Format_RGB32 && canvas.format() == QImage::Format_RGB32;
    if (!isPlain || painter.opacity() < 1) return false;
    for (const QRect& rect : region& place& canvas.rect())
        for (int row = rect.top(); row <= rect.bottom(); ++row)
            std::copy_n(reinterpret_cast<const QRgb*>(image.constScanLine(row - place.top())) + rect.left() -
                            place.left(),
                        rect.width(), reinterpret_cast<QRgb*>(canvas.scanLine(row)) + rect.left());
    return true;
}

void drawPart(QPainter& painter, const QImage& image, const QRect& place, const QRegion& region)
{
    if (image.size() == place.size() && copyPart(painter, image, place, region)) return;
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

SoftwareRenderer::SoftwareRenderer(Surface& surface)
    : m_surface(surface)
{
}

SoftwareRenderer::~SoftwareRenderer() = default;

void SoftwareRenderer::follow(const Scene& scene)
{
    std::erase_if(m_buffers, [&scene](const auto& entry) { return !scene.find(entry.first); });
}

bool SoftwareRenderer::draw(Scene& scene, const QRegion& damage, QSize size)
{
    m_size = size;
    m_damage = damage;
    m_toPaint = damage;
    QImage& canvas = m_surface.canvas();
    renderLayers(scene, canvas);
    paint(scene, canvas);
    m_surface.present(m_damage);
    return true;
}

void SoftwareRenderer::renderLayers(Scene& scene, QImage& canvas)
{
    m_direct = 0;
    while (!tryDirect(scene, canvas) || !renderBuffers(scene)) {
        // A layer that had no picture after all was taken from the scene: what it hid is to be painted
        // instead.
    }
}

bool SoftwareRenderer::tryDirect(Scene& scene, QImage& canvas)
{
    if (m_direct) return true;
    for (auto item = scene.items.rbegin(); item != scene.items.rend(); ++item) {
        if (item->kind != SceneItem::Kind::Layer || item->alpha < 1 || !item->visible.intersects(m_toPaint))
            continue;
        uchar* const place = placeInCanvas(canvas, item->rect);
        if (!place) continue;
        const PixelTarget target{place, item->rect.width(), item->rect.height(),
                                 static_cast<int>(canvas.bytesPerLine())};
        if (!item->view->layer()->render(target)) {
            drop(scene, item->identity);
            return false;
        }
        m_direct = item->identity;
        m_buffers.erase(m_direct);
        m_toPaint += item->rect & canvas.rect();
        break;
    }
    return true;
}

bool SoftwareRenderer::renderBuffers(Scene& scene)
{
    for (const SceneItem& item : scene.items) {
        if (item.kind != SceneItem::Kind::Layer || item.identity == m_direct) continue;
        if (!item.visible.intersects(m_toPaint) || renderBuffer(item)) continue;
        drop(scene, item.identity);
        return false;
    }
    return true;
}

bool SoftwareRenderer::renderBuffer(const SceneItem& item)
{
    Buffer& buffer = m_buffers[item.identity];
    if (buffer.revision == item.revision && buffer.image.size() == item.rect.size()) return true;
    buffer.image = renderLayer(*item.view->layer(), item.rect.size(), std::move(buffer.image));
    buffer.revision = item.revision;
    return !buffer.image.isNull();
}

void SoftwareRenderer::drop(Scene& scene, Identity identity)
{
    m_damage += scene.remove(identity, {QPoint(0, 0), m_size});
    m_toPaint += m_damage;
}

void SoftwareRenderer::paint(const Scene& scene, QImage& canvas) const
{
    QPainter painter(&canvas);
    for (const QRect& rect : scene.ground& m_toPaint)
        painter.fillRect(rect, Qt::black);
    for (const SceneItem& item : scene.items) {
        const QRegion region = item.visible & m_toPaint;
        if (item.identity != m_direct && !region.isEmpty()) paintItem(painter, item, region);
    }
}

void SoftwareRenderer::paintItem(QPainter& painter, const SceneItem& item, const QRegion& region) const
{
    painter.setOpacity(qMin(item.alpha, 1.0F));
    switch (item.kind) {
    case SceneItem::Kind::Shadow:
        drawPart(painter, item.shadow, item.rect, region);
        break;
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
