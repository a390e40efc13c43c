// What only the OpenGL renderer does.

#include "platform/display/gl/OpenGLRenderer.h"

#include "platform/base/Log.h"
#include "platform/display/CompositorTest.h"
#include "platform/display/gl/OpenGLDevice.h"

#include <QOpenGLFunctions>

namespace kestro {

namespace {

/// Content that draws with OpenGL: the upper half in one colour, the lower in another.
class CardLayer final : public Layer {
public:
    explicit CardLayer(OpenGLDevice& device)
        : m_device(device)
    {
    }
    [[nodiscard]] bool hasFrame() const override { return true; }
    bool render(const PixelTarget& target) override
    {
        return m_device.renderToMemory(target, [this](const auto& card) { return renderWithOpenGL(card); });
    }
    [[nodiscard]] bool drawsWithOpenGL() const override { return !m_device.isLost(); }
    bool renderWithOpenGL(const FramebufferTarget& target) override
    {
        if (isBroken) return false;
        ++renderings;
        QOpenGLFunctions& gl = m_device.functions();
        gl.glBindFramebuffer(GL_FRAMEBUFFER, target.framebuffer);
        gl.glEnable(GL_SCISSOR_TEST);
        clear({0, 0, target.width, target.height / 2}, upper);
        clear({0, target.height / 2, target.width, target.height - target.height / 2}, lower);
        gl.glDisable(GL_SCISSOR_TEST);
        return true;
    }
    void announce() const { announceFrame(); }

    QColor upper = Qt::red;
    QColor lower = Qt::blue;
    bool isBroken = false;
    int renderings = 0;

private:
    void clear(const QRect& rect, const QColor& colour)
    {
        QOpenGLFunctions& gl = m_device.functions();
        gl.glScissor(rect.x(), rect.y(), rect.width(), rect.height());
        // Without alpha, as content may leave it: layers are opaque.
        gl.glClearColor(float(colour.redF()), float(colour.greenF()), float(colour.blueF()), 0);
        gl.glClear(GL_COLOR_BUFFER_BIT);
    }

    OpenGLDevice& m_device;
};

class OpenGLRendererTest : public CompositorTest {
protected:
    OpenGLRendererTest() { windows.reserve(8); }

    [[nodiscard]] OpenGLDevice& device() const { return static_cast<OpenGLDevice&>(*desktop.openGL()); }
    /// Whether every pixel of the rectangle has that colour, but for roundings.
    [[nodiscard]] bool isNear(const Rect& rect, const QColor& colour) const
    {
        const QRect area = pixels(rect);
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x) {
                const QColor shown = surface().image().pixelColor(x, y);
                const int most =
                    std::max({std::abs(shown.red() - colour.red()), std::abs(shown.green() - colour.green()),
                              std::abs(shown.blue() - colour.blue())});
                if (most > 2) return false;
            }
        return true;
    }
};

} // namespace

TEST_F(OpenGLRendererTest, device_isThere)
{
    ASSERT_NE(desktop.openGL(), nullptr);
    EXPECT_FALSE(device().isLost());
    EXPECT_FALSE(device().isHardware()); // the tests' server has no graphics card
}

TEST_F(OpenGLRendererTest, layerThatDrawsWithOpenGL_isShownUprightAtItsPlace)
{
    CardLayer layer(device());
    View movie({{0, 0}, {61, 40}});
    movie.setLayer(&layer);
    makeWindow({{33, 10}, {61, 40}}, &movie);
    screen().update();
    EXPECT_TRUE(isNear({{33, 30}, {61, 20}}, Qt::red));
    EXPECT_TRUE(isNear({{33, 10}, {61, 20}}, Qt::blue));
    EXPECT_TRUE(isNear({{0, 0}, {33, 128}}, Qt::black));
    EXPECT_TRUE(isNear({{33, 50}, {61, 78}}, Qt::black));
}

TEST_F(OpenGLRendererTest, layerThatDrawsWithOpenGL_drawsOncePerPictureAndSize)
{
    CardLayer layer(device());
    View movie({{0, 0}, {64, 40}});
    movie.setLayer(&layer);
    Window& window = makeWindow({{32, 10}, {64, 40}}, &movie);
    screen().update();
    window.setFrameOrigin({40, 20});
    screen().update();
    EXPECT_EQ(layer.renderings, 1);
    EXPECT_TRUE(isNear({{40, 20}, {64, 20}}, Qt::blue));
    layer.upper = Qt::green;
    layer.announce();
    screen().update();
    EXPECT_EQ(layer.renderings, 2);
    EXPECT_TRUE(isNear({{40, 40}, {64, 20}}, Qt::green));
    window.setFrameDisplay({{40, 20}, {32, 20}}, false);
    screen().update();
    EXPECT_EQ(layer.renderings, 3);
    EXPECT_TRUE(isNear({{40, 30}, {32, 10}}, Qt::green));
}

TEST_F(OpenGLRendererTest, layerThatDrawsWithOpenGL_fadesWithItsWindow)
{
    FillView white({{0, 0}, {256, 128}}, Qt::white);
    makeWindow({{0, 0}, {256, 128}}, &white);
    CardLayer layer(device());
    View movie({{0, 0}, {64, 64}});
    movie.setLayer(&layer);
    makeWindow({{32, 32}, {64, 64}}, &movie).setAlphaValue(0.25F);
    screen().update();
    EXPECT_TRUE(isNear({{32, 64}, {64, 32}}, QColor(255, 191, 191)));
    EXPECT_TRUE(isNear({{32, 32}, {64, 32}}, QColor(191, 191, 255)));
    EXPECT_TRUE(isNear({{0, 0}, {32, 128}}, Qt::white));
}

TEST_F(OpenGLRendererTest, layerThatCannotDrawWithOpenGL_leavesWhatStoodThere)
{
    FillView ground({{0, 0}, {64, 64}}, Qt::green);
    CardLayer layer(device());
    layer.isBroken = true;
    ground.setLayer(&layer);
    makeWindow({{32, 32}, {64, 64}}, &ground);
    screen().update();
    EXPECT_TRUE(isNear({{32, 32}, {64, 64}}, Qt::green));
}

TEST_F(OpenGLRendererTest, heldPicture_isWhatTheLayerDrewWithOpenGL)
{
    CardLayer layer(device());
    View movie({{0, 0}, {64, 64}});
    movie.setLayer(&layer);
    makeWindow({{32, 32}, {64, 64}}, &movie);
    screen().update();
    movie.holdPicture();
    movie.setLayer(nullptr);
    screen().update();
    EXPECT_TRUE(movie.isHoldingPicture());
    EXPECT_TRUE(isNear({{32, 64}, {64, 32}}, Qt::red));
    EXPECT_TRUE(isNear({{32, 32}, {64, 32}}, Qt::blue));
}

TEST_F(OpenGLRendererTest, backingStore_showsEachPartThatWasDrawnSince)
{
    FillView view({{0, 0}, {100, 100}}, Qt::red);
    Window& window = makeWindow({{20, 20}, {100, 100}}, &view);
    screen().update();
    view.setColour(Qt::blue);
    view.setNeedsDisplayInRect({{10, 10}, {20, 20}});
    screen().update();
    view.setColour(Qt::green);
    view.setNeedsDisplayInRect({{60, 60}, {20, 20}});
    screen().update();
    EXPECT_TRUE(isNear({{30, 30}, {20, 20}}, Qt::blue));
    EXPECT_TRUE(isNear({{80, 80}, {20, 20}}, Qt::green));
    window.setFrameOrigin({30, 20});
    screen().update();
    EXPECT_TRUE(isNear({{40, 30}, {20, 20}}, Qt::blue));
    EXPECT_TRUE(isNear({{90, 80}, {20, 20}}, Qt::green));
    EXPECT_TRUE(isNear({{30, 20}, {10, 100}}, Qt::red));
}

TEST_F(OpenGLRendererTest, backingStore_showsWhatWasDrawnWhileItWasHidden)
{
    FillView view({{0, 0}, {100, 100}}, Qt::red);
    makeWindow({{20, 20}, {100, 100}}, &view);
    FillView cover({{0, 0}, {100, 100}}, Qt::white);
    screen().update();
    Window& above = makeWindow({{20, 20}, {100, 100}}, &cover);
    screen().update();
    view.setColour(Qt::blue);
    view.setNeedsDisplayInRect({{10, 10}, {20, 20}});
    screen().update();
    EXPECT_EQ(surface().presentCount(), 2);
    above.orderOut();
    screen().update();
    EXPECT_TRUE(isNear({{30, 30}, {20, 20}}, Qt::blue));
    EXPECT_TRUE(isNear({{20, 50}, {100, 70}}, Qt::red));
}

TEST_F(OpenGLRendererTest, lostContext_goesOnInSoftwareWithTheSamePicture)
{
    FillView ground({{0, 0}, {100, 100}}, Qt::green);
    View movie({{10, 10}, {64, 64}});
    FakeLayer layer;
    ground.addSubview(movie);
    movie.setLayer(&layer);
    Window& window = makeWindow({{20, 20}, {100, 100}}, &ground);
    window.setAlphaValue(0.5F);
    screen().update();
    const QImage before = surface().image().copy();

    QStringList lines;
    const LogCapture capture([&lines](const QString& line) { lines += line; });
    device().lose();
    window.setFrameOrigin({30, 20});
    screen().update();
    window.setFrameOrigin({20, 20});
    screen().update();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.front().contains(QStringLiteral("drawing in software")));
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x) {
            const QColor was = before.pixelColor(x, y);
            const QColor is = surface().image().pixelColor(x, y);
            ASSERT_NEAR(was.red(), is.red(), 2) << x << ' ' << y;
            ASSERT_NEAR(was.green(), is.green(), 2) << x << ' ' << y;
            ASSERT_NEAR(was.blue(), is.blue(), 2) << x << ' ' << y;
        }
}

TEST_F(OpenGLRendererTest, lostContext_leavesOutLayersThatNeededIt_untilTheyDoNot)
{
    FillView ground({{0, 0}, {64, 64}}, Qt::green);
    CardLayer layer(device());
    ground.setLayer(&layer);
    makeWindow({{32, 32}, {64, 64}}, &ground);
    screen().update();
    EXPECT_TRUE(isNear({{32, 64}, {64, 32}}, Qt::red));
    const LogCapture capture([](const QString&) {});
    device().lose();
    layer.announce();
    screen().update();
    EXPECT_TRUE(isNear({{32, 32}, {64, 64}}, Qt::green));
}

} // namespace kestro
