#pragma once

#include "platform/display/view/Painter.h"
#include "platform/saver/ScreenSaverView.h"

namespace kestro {

/// A saver to stand behind the movies: blue all over, and it notes what its host asks of it. Made by the
/// library of the test's bundles.
class FakeBackSaver final : public ScreenSaverView {
public:
    using ScreenSaverView::ScreenSaverView;

    void startAnimation() override
    {
        ++starts;
        ScreenSaverView::startAnimation();
    }
    void stopAnimation() override
    {
        ++stops;
        ScreenSaverView::stopAnimation();
    }
    void drawRect(Painter& painter, const Rect& rect) override { painter.fill(rect, Qt::blue); }

    int starts = 0;
    int stops = 0;
};

} // namespace kestro
