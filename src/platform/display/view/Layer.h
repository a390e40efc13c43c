#pragma once

#include <QImage>

#include <functional>

namespace kestro {

/// Pixels to draw into: 32 bits a pixel, blue first, the fourth byte 255, without which some windows are
/// transparent. Rows run downwards from the top.
struct PixelTarget {
    unsigned char* pixels = nullptr; ///< the top left pixel
    int width = 0;                   ///< pixels, even
    int height = 0;                  ///< pixels
    int stride = 0;                  ///< bytes from one row to the next
};

/// A picture to draw into with OpenGL: a framebuffer of the context that is current. Its first row is the top
/// one.
struct FramebufferTarget {
    unsigned framebuffer = 0; ///< its name in OpenGL
    int width = 0;            ///< pixels
    int height = 0;           ///< pixels
};

/// Moving content that a view shows: a movie, a web page, a hosted saver. The compositor draws it straight at
/// the view's rectangle, over the backing store, so that a frame costs one pass over its pixels. Owned by
/// whoever makes the content; must outlive the view that shows it, or be taken from it first. Main thread.
class Layer {
public:
    virtual ~Layer() = default;

    /// Told each time a picture of the screen is composed that the layer has a place in: content that takes
    /// nothing until somebody looks at it begins with this.
    virtual void willShow() {}

    /// Whether there is a picture to draw. Until then what stood there before keeps standing.
    [[nodiscard]] virtual bool hasFrame() const = 0;

    /// Draws the newest picture, stretched over the whole target, opaque. Answers false, with the target
    /// untouched, when there is none. Calling it again without a new picture draws the same one.
    virtual bool render(const PixelTarget& target) = 0;

    /// Whether it draws with OpenGL by itself, by the next function; the one above works all the same, but
    /// costs a way to the graphics card and back.
    [[nodiscard]] virtual bool drawsWithOpenGL() const { return false; }
    /// Draws as render does. Afterwards OpenGL's state is the one of a new context, but for the viewport, the
    /// blending function, the colour to clear with and the framebuffer. False as well where it does not draw
    /// with OpenGL.
    virtual bool renderWithOpenGL(const FramebufferTarget&) { return false; }

    /// Called, on the main thread, each time there is a new picture; nothing clears it. One at a time.
    void setPictureHandler(std::function<void()> handler) { m_onPicture = std::move(handler); }

protected:
    /// For the content: tells that there is a new picture. Main thread.
    void announceFrame() const
    {
        if (m_onPicture) m_onPicture();
    }

private:
    std::function<void()> m_onPicture;
};

} // namespace kestro
