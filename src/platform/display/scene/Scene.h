#pragma once

#include "platform/display/view/Identity.h"

#include <QImage>
#include <QRect>
#include <QRegion>

#include <vector>

namespace kestro {

struct ScreenMapping;
class View;
class Window;

/// One thing that is seen on a screen. Pixels of the canvas.
struct SceneItem {
    enum class Kind { Shadow, Backing, Layer, Held };

    Kind kind = Kind::Backing;
    Identity identity = 0; ///< of the thing; the same in the scenes of successive pictures
    Identity windowOf = 0; ///< identity of the window it belongs to
    Window* window =
        nullptr;          ///< may be followed only while the picture is composed that the scene was made for
    View* view = nullptr; ///< likewise; null for a backing store and a shadow
    QRect rect;           ///< where the whole of it lies
    QRegion area;         ///< where it paints anything
    QRegion opaque;       ///< where, at alpha 1, it hides what is below
    QRegion visible;      ///< the area, less what is hidden by what lies above
    QRegion painted;      ///< what views drew since the picture before
    QImage shadow;        ///< as large as the rect, of a shadow alone
    float alpha = 1;
    Identity revision = 0; ///< another one for each new picture of a layer
};

/// What a screen shows, bottom to top, and how that differs from what it showed before.
/// Tested by CompositorTest.
struct Scene {
    std::vector<SceneItem> items;
    QRegion ground; ///< the part of the canvas that nothing hides: black

    [[nodiscard]] const SceneItem* find(Identity identity) const;
    /// Works out what is visible, from the areas of the items on that canvas.
    void resolveVisibility(const QRect& canvas);
    /// Takes an item out; answers where it was seen, which now shows something else.
    QRegion remove(Identity identity, const QRect& canvas);
};

/// The scene of the windows, given bottom to top. A window whose flushing is disabled stays as in `before`.
[[nodiscard]] Scene makeScene(const std::vector<Window*>& windows, const ScreenMapping& mapping,
                              const Scene& before);

/// The pixels that may look different in the two.
[[nodiscard]] QRegion sceneDifference(const Scene& before, const Scene& after);

} // namespace kestro
