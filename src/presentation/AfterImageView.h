#pragma once

#include "platform/display/view/Picture.h"
#include "platform/display/view/View.h"

namespace kestro {

/// Shows one still where a movie was; it has no background. Main thread.
class AfterImageView final : public View {
public:
    using View::View;

    /// The picture to draw, a null one for none, and where in the view; asks for no redraw.
    void setImageFrame(const Picture& image, const Rect& frame);
    [[nodiscard]] const Picture& image() const { return m_image; }

    void drawRect(Painter& painter, const Rect& rect) override;

private:
    Picture m_image;
    Rect m_imgFrame;
};

} // namespace kestro
