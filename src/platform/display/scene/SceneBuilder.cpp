#include "platform/display/scene/SceneBuilder.h"

#include "platform/display/view/BackingStore.h"
#include "platform/display/view/Layer.h"
#include "platform/display/view/View.h"
#include "platform/display/view/ViewGeometry.h"
#include "platform/display/view/Window.h"
#include "platform/display/view/WindowShadow.h"

namespace kestro {

namespace {

/// The view in `view` that shows the item, if it still does.
View* findShowing(View* view, const SceneItem& item)
{
    if (!view) return nullptr;
    const auto& held = view->heldPicture();
    if (item.kind == SceneItem::Kind::Layer && view->layer() && view->layerIdentity() == item.identity)
        return view;
    if (item.kind == SceneItem::Kind::Held && held && held->identity == item.identity) return view;
    for (View* inside : view->subviews())
        if (View* found = findShowing(inside, item)) return found;
    return nullptr;
}

/// A window larger than the screen is not worth the memory of its shadow.
bool fitsInto(const QRect& place, QSize canvas)
{
    return place.width() <= canvas.width() && place.height() <= canvas.height();
}

} // namespace

void SceneBuilder::add(Window& window)
{
    if (window.isFlushingDisabled()) {
        addFrozen(window);
        return;
    }
    if (window.alphaValue() <= 0) return;
    const auto itemsBelow = m_scene.items.size();
    addBacking(window);
    if (window.contentView()) addViews(window, *window.contentView());
    if (window.hasShadow() && m_scene.items.size() > itemsBelow) insertShadow(window, itemsBelow);
}

Scene SceneBuilder::finish()
{
    m_scene.resolveVisibility(m_mapping.canvasRect());
    return std::move(m_scene);
}

void SceneBuilder::addFrozen(Window& window)
{
    for (const SceneItem& old : m_before.items) {
        if (old.windowOf != window.identity()) continue;
        SceneItem item = old;
        item.window = &window;
        item.painted = {};
        if (item.kind == SceneItem::Kind::Layer || item.kind == SceneItem::Kind::Held) {
            item.view = findShowing(window.contentView(), item);
            if (!item.view) continue;
        }
        m_scene.items.push_back(std::move(item));
    }
}

void SceneBuilder::insertShadow(Window& window, size_t itemsBelow)
{
    const QRect place = m_mapping.pixelRect(window.frame());
    if (!fitsInto(place, m_mapping.pixels)) return;
    SceneItem item;
    item.kind = SceneItem::Kind::Shadow;
    item.identity = window.shadowIdentity();
    item.windowOf = window.identity();
    item.window = &window;
    item.alpha = window.alphaValue();
    item.rect = place.marginsAdded(WindowShadow::reach(m_mapping.ratio));
    item.area = QRegion(m_mapping.canvasRect() & item.rect) - place;
    if (item.area.isEmpty()) return;
    item.shadow = window.shadow(place.size());
    m_scene.items.insert(m_scene.items.begin() + static_cast<std::ptrdiff_t>(itemsBelow), std::move(item));
}

void SceneBuilder::addBacking(Window& window)
{
    SceneItem item;
    item.identity = window.identity();
    item.windowOf = window.identity();
    item.window = &window;
    item.alpha = window.alphaValue();
    BackingStore& store = window.store();
    const QRegion whole = onCanvas(window.frame());
    const QPoint place = m_mapping.pixelRect(window.frame()).topLeft();
    item.rect = {place, store.pixelSize()};
    item.painted = store.takePainted().translated(place);
    item.area = window.isOpaque() ? whole : store.drawn().translated(place) & whole;
    item.opaque = window.isOpaque() ? whole : store.opaque().translated(place) & whole;
    if (!item.area.isEmpty()) m_scene.items.push_back(std::move(item));
}

void SceneBuilder::addViews(Window& window, View& view)
{
    if (view.isHoldingPicture()) {
        addHeld(window, view);
        return;
    }
    if (view.layer()) {
        view.layer()->willShow();
        if (view.layer()->hasFrame()) addLayer(window, view);
    }
    for (View* inside : view.subviews())
        addViews(window, *inside);
}

void SceneBuilder::addLayer(Window& window, View& view)
{
    SceneItem item;
    item.kind = SceneItem::Kind::Layer;
    item.identity = view.layerIdentity();
    item.windowOf = window.identity();
    item.window = &window;
    item.view = &view;
    item.rect = m_mapping.pixelRect(globalRect(view));
    item.area = onCanvas(visibleGlobalRect(view));
    item.opaque = item.area;
    item.alpha = window.alphaValue();
    item.revision = view.pictureIdentity();
    if (!item.area.isEmpty()) m_scene.items.push_back(std::move(item));
}

void SceneBuilder::addHeld(Window& window, View& view)
{
    const View::HeldPicture& held = *view.heldPicture();
    SceneItem item;
    item.kind = SceneItem::Kind::Held;
    item.identity = held.identity;
    item.windowOf = window.identity();
    item.window = &window;
    item.view = &view;
    item.rect = m_mapping.pixelRect(held.screenRect);
    item.area = onCanvas(held.clip);
    if (!held.image.hasAlphaChannel()) item.opaque = item.area;
    item.alpha = window.alphaValue();
    if (!item.area.isEmpty()) m_scene.items.push_back(std::move(item));
}

QRegion SceneBuilder::onCanvas(const Rect& global) const
{
    return m_mapping.pixelRect(global) & m_mapping.canvasRect();
}

Scene makeScene(const std::vector<Window*>& windows, const ScreenMapping& mapping, const Scene& before)
{
    SceneBuilder builder(mapping, before);
    for (Window* window : windows)
        builder.add(*window);
    return builder.finish();
}

} // namespace kestro
