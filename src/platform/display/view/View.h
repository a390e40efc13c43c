#pragma once

#include "platform/display/view/Geometry.h"
#include "platform/display/view/Identity.h"

#include <QImage>

#include <memory>
#include <optional>
#include <vector>

namespace kestro {

class Layer;
class Painter;
class Window;

/// A rectangle of a window that draws itself and holds other views. Its frame is in its superview's
/// coordinates, its bounds start at (0, 0). A view is owned by who made it; superviews and windows only
/// borrow it, and a view that is destroyed takes itself out of both. What it drew stays in the window's
/// backing store until it is drawn again. Main thread.
class View {
public:
    explicit View(const Rect& frame);
    virtual ~View();
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    [[nodiscard]] Rect frame() const { return m_frame; }
    [[nodiscard]] Rect bounds() const { return {{0, 0}, m_frame.size}; }
    virtual void setFrame(const Rect& frame);
    virtual void setFrameOrigin(Point origin);
    virtual void setFrameSize(Size size);

    /// Puts `view` on top of the views in this one; a view elsewhere is taken from there first.
    void addSubview(View& view);
    /// Takes this view out of its superview; nothing when it has none.
    void removeFromSuperview();
    [[nodiscard]] View* superview() const { return m_superview; }
    /// Bottom to top.
    [[nodiscard]] const std::vector<View*>& subviews() const { return m_subviews; }
    /// The window this view is in, null when in none.
    [[nodiscard]] Window* window() const;
    /// `rect` of this view in the coordinates of its window's content; of its topmost superview when in none.
    [[nodiscard]] Rect convertToWindow(const Rect& rect) const;

    /// Draws the view. `rect` is the part to redraw, in the view's coordinates; the painter clips to it.
    virtual void drawRect(Painter& painter, const Rect& rect);
    /// Marks the whole view to be drawn before the next picture of its screen, or takes the mark away.
    void setNeedsDisplay(bool needed);
    void setNeedsDisplayInRect(const Rect& rect);
    /// Draws the view and what lies on it now.
    void display();
    /// The same for the part `rect` of the view.
    void displayRectIgnoringOpacity(const Rect& rect);

    /// Moving content shown over the view's whole bounds, or null. Borrowed.
    [[nodiscard]] Layer* layer() const { return m_layer; }
    void setLayer(Layer* layer);

    /// Keeps the picture that the layers in this view show now standing at its place on the screen, and this
    /// view undrawn, until a layer in it has a picture again. So one movie takes over from another without a
    /// gap, even where the view moves in between. Nothing when there is no such picture.
    void holdPicture();
    /// Lets go of a held picture; nothing when there is none.
    void dropHeldPicture();
    [[nodiscard]] bool isHoldingPicture() const { return m_held.has_value(); }

    /// A picture that stays where it was shown.
    struct HeldPicture {
        QImage image;    ///< as shown, in device pixels
        Rect screenRect; ///< where the whole image lies, global coordinates
        Rect clip;       ///< the part of it that was visible, global coordinates
        Identity identity = 0;
    };
    /// For the compositor.
    [[nodiscard]] const std::optional<HeldPicture>& heldPicture() const { return m_held; }
    /// For the compositor: names what the layer shows; anew for each layer that is set, and each of its
    /// pictures.
    [[nodiscard]] Identity layerIdentity() const { return m_layerIdentity; }
    [[nodiscard]] Identity pictureIdentity() const { return m_pictureIdentity; }
    /// For the compositor: the parts marked for display, in the view's coordinates; afterwards none is.
    [[nodiscard]] std::vector<Rect> takeMarks();
    /// For the compositor: lets go of a held picture that a layer in this view has a successor for.
    void releaseOvertakenPicture();

private:
    friend class Window;

    void changeFrame(const Rect& frame);
    void layerHasNewPicture();
    [[nodiscard]] bool isLayerReady() const;
    void scheduleUpdate() const;

    Rect m_frame;
    View* m_superview = nullptr;
    Window* m_window = nullptr; ///< set on a content view only
    std::vector<View*> m_subviews;
    Layer* m_layer = nullptr;
    Identity m_layerIdentity = 0;
    Identity m_pictureIdentity = 0;
    std::optional<HeldPicture> m_held;
    std::vector<Rect> m_marks;
    /// What layers' handlers see this view through: they may outlive it.
    std::shared_ptr<View*> m_self = std::make_shared<View*>(this);
};

} // namespace kestro
