#pragma once

#include "platform/display/DisplayTest.h"
#include "platform/display/surface/Surface.h"

#include <memory>
#include <vector>

namespace kestro {

/// Movies in windows over a screen of 256 by 128 pixels.
class CompositorTest : public DisplayTest {
protected:
    CompositorTest()
        : DisplayTest({{{0, 0}, {256, 128}}})
    {
    }

    /// Whether the layer's last picture was rendered into the surface's own pixels.
    [[nodiscard]] bool isDirect(const FakeLayer& layer) const
    {
        const QImage& canvas = surface().canvas();
        const uchar* end = canvas.constBits() + canvas.sizeInBytes();
        return layer.targets.back().pixels >= canvas.constBits() && layer.targets.back().pixels < end;
    }
    /// Whether exactly the part `visible` of the screen shows the layer's picture whose top left pixel is at
    /// `place`.
    [[nodiscard]] bool shows(const FakeLayer& layer, QPoint place, const QRect& visible) const
    {
        const QImage& image = surface().image();
        for (int y = visible.top(); y <= visible.bottom(); ++y)
            for (int x = visible.left(); x <= visible.right(); ++x)
                if ((image.pixel(x, y) & RGB_MASK) !=
                    (layer.pixelAt(x - place.x(), y - place.y()) & RGB_MASK))
                    return false;
        return true;
    }

    Window& makeWindow(const Rect& frame, View* content)
    {
        windows.push_back(
            std::make_unique<Window>(Window::Description{frame, &screen(), QStringLiteral("test")}));
        windows.back()->setOpaque(false);
        windows.back()->setContentView(content);
        windows.back()->orderFront();
        return *windows.back();
    }

    std::vector<std::unique_ptr<Window>> windows;
};

/// A movie at `place` in a window of its own.
struct Movie {
    explicit Movie(const Rect& frame)
        : view({{0, 0}, frame.size})
    {
        view.setLayer(&layer);
    }
    FakeLayer layer;
    View view;
};

} // namespace kestro
