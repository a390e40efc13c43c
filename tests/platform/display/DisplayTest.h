#pragma once

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/display/surface/image/ImageSurface.h"
#include "platform/display/view/Layer.h"
#include "platform/display/view/Painter.h"
#include "platform/display/view/View.h"
#include "platform/display/view/Window.h"

#include <QImage>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace kestro {

/// A view that fills what it is asked to draw, and remembers what that was.
class FillView final : public View {
public:
    FillView(const Rect& frame, const QColor& colour)
        : View(frame)
        , m_colour(colour)
    {
    }

    void setColour(const QColor& colour) { m_colour = colour; }
    void drawRect(Painter& painter, const Rect& rect) override
    {
        drawn.push_back(rect);
        painter.fill(rect, m_colour);
    }

    std::vector<Rect> drawn;

private:
    QColor m_colour;
};

/// Moving content whose every pixel tells its place, or that is of one colour.
class FakeLayer final : public Layer {
public:
    explicit FakeLayer(const QColor& colour = {})
        : m_colour(colour)
    {
    }

    [[nodiscard]] bool hasFrame() const override { return m_hasPicture; }
    bool render(const PixelTarget& target) override;

    void setHasPicture(bool has) { m_hasPicture = has; }
    /// Has a picture that then cannot be drawn.
    void setBroken(bool broken) { m_isBroken = broken; }
    void show(const QColor& colour)
    {
        m_colour = colour;
        m_hasPicture = true;
        announceFrame();
    }
    void announce() const { announceFrame(); }
    [[nodiscard]] QRgb pixelAt(int x, int y) const;

    std::vector<PixelTarget> targets; ///< of each rendering

private:
    QColor m_colour;
    bool m_hasPicture = true;
    bool m_isBroken = false;
};

/// What the tests draw with, by KESTRO_RENDERER; null for software.
[[nodiscard]] std::shared_ptr<OpenGL> testOpenGL();

/// A desktop of images with a clock turned by hand; the first screen is 200 by 100 points unless a test says
/// otherwise.
class DisplayTest : public testing::Test {
protected:
    explicit DisplayTest(const std::vector<Rect>& frames = {{{0, 0}, {200, 100}}}, double pixelRatio = 1.0)
        : desktop(frames, pixelRatio, timers, clock, random, testOpenGL())
    {
    }

    [[nodiscard]] Screen& screen(size_t index = 0) const { return *desktop.screens().at(index); }
    [[nodiscard]] ImageSurface& surface(size_t index = 0) const
    {
        return ImageDesktop::surfaceOf(screen(index));
    }
    /// The colour shown at a point of the screen, counted from its lower left corner.
    [[nodiscard]] QColor at(int x, int y, size_t index = 0) const
    {
        const QImage& image = surface(index).image();
        return image.pixelColor(x, image.height() - 1 - y);
    }
    /// Whether what is shown is all that was composed: nothing lies in the surface's pixels that was not
    /// presented.
    [[nodiscard]] bool isAllPresented() const
    {
        return surface().canvas().convertToFormat(QImage::Format_RGB888) ==
               surface().image().convertToFormat(QImage::Format_RGB888);
    }
    /// The rectangle in the pixels of a screen's image.
    [[nodiscard]] QRect pixels(const Rect& rect, size_t index = 0) const
    {
        const float height = static_cast<float>(surface(index).image().height());
        return QRectF(rect.left(), height - rect.top(), rect.size.width, rect.size.height).toRect();
    }

    ManualClock clock;
    ManualTimerSource timers{clock};
    SeededRandom random{1};
    ImageDesktop desktop;
};

} // namespace kestro
