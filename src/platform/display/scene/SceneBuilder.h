#pragma once

#include "platform/display/scene/Scene.h"
#include "platform/display/scene/ScreenMapping.h"

namespace kestro {

/// Puts together the items of one scene, window by window. Lives for one picture. Main thread.
/// Tested by CompositorTest.
class SceneBuilder final {
public:
    SceneBuilder(const ScreenMapping& mapping, const Scene& before)
        : m_mapping(mapping)
        , m_before(before)
    {
    }

    void add(Window& window);
    [[nodiscard]] Scene finish();

private:
    void addFrozen(Window& window);
    void addBacking(Window& window);
    void addViews(Window& window, View& view);
    void addLayer(Window& window, View& view);
    void addHeld(Window& window, View& view);
    /// Below what the window shows, and above the first `itemsBelow` items.
    void insertShadow(Window& window, size_t itemsBelow);
    [[nodiscard]] QRegion onCanvas(const Rect& global) const;

    const ScreenMapping& m_mapping;
    const Scene& m_before;
    Scene m_scene;
};

} // namespace kestro
