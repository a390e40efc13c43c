#include "platform/display/scene/Scene.h"

#include <algorithm>

namespace kestro {

namespace {

/// The place of each item of `scene` among those that are in `other` too.
std::vector<Identity> survivors(const Scene& scene, const Scene& other)
{
    std::vector<Identity> list;
    for (const SceneItem& item : scene.items)
        if (other.find(item.identity)) list.push_back(item.identity);
    return list;
}

bool isPlacedAlike(const SceneItem& a, const SceneItem& b)
{
    return a.rect == b.rect && a.alpha == b.alpha && a.revision == b.revision;
}

QRegion itemDifference(const SceneItem& before, const SceneItem& after)
{
    if (!isPlacedAlike(before, after)) return before.visible + after.visible;
    QRegion changed = after.painted & after.visible;
    if (before.area != after.area) changed += (before.visible - after.area) + (after.visible - before.area);
    if (before.opaque != after.opaque)
        changed += (before.opaque ^ after.opaque) & (before.visible + after.visible);
    return changed;
}

} // namespace

const SceneItem* Scene::find(Identity identity) const
{
    const auto found = std::find_if(items.begin(), items.end(),
                                    [identity](const SceneItem& item) { return item.identity == identity; });
    return found != items.end() ? &*found : nullptr;
}

void Scene::resolveVisibility(const QRect& canvas)
{
    QRegion hidden;
    QRegion
        hiddenInWindow; // in a faint window, too, an opaque thing hides what else of that window is below it
    Identity window = 0;
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (item->windowOf != window) hiddenInWindow = {};
        window = item->windowOf;
        item->visible = (item->area & canvas) - hidden - hiddenInWindow;
        hiddenInWindow += item->opaque;
        if (item->alpha >= 1) hidden += item->opaque;
    }
    ground = QRegion(canvas) - hidden;
}

QRegion Scene::remove(Identity identity, const QRect& canvas)
{
    const SceneItem* const item = find(identity);
    if (!item) return {};
    const QRegion seen = item->visible;
    std::erase_if(items, [identity](const SceneItem& each) { return each.identity == identity; });
    resolveVisibility(canvas);
    return seen;
}

QRegion sceneDifference(const Scene& before, const Scene& after)
{
    QRegion changed;
    for (const SceneItem& item : before.items)
        if (!after.find(item.identity)) changed += item.visible;

    const auto orderBefore = survivors(before, after);
    const auto orderAfter = survivors(after, before);
    size_t place = 0;
    for (const SceneItem& item : after.items) {
        const SceneItem* old = before.find(item.identity);
        if (!old) {
            changed += item.visible;
            continue;
        }
        const bool isReordered = orderBefore[place] != orderAfter[place];
        changed += isReordered ? old->visible + item.visible : itemDifference(*old, item);
        ++place;
    }
    return changed;
}

} // namespace kestro
