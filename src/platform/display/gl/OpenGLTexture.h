#pragma once

#include <QImage>
#include <QRegion>
#include <QSize>

namespace kestro {

struct FramebufferTarget;
class OpenGLDevice;

/// A picture on the graphics card: pixels that were put there, or a target that is drawn into. Its first row
/// is the top one. Owned by who draws with it; the device outlives it. Main thread; pixels.
/// Tested by OpenGLRendererTest.
class OpenGLTexture final {
public:
    explicit OpenGLTexture(OpenGLDevice& device)
        : m_device(device)
    {
    }
    ~OpenGLTexture();
    OpenGLTexture(const OpenGLTexture&) = delete;
    OpenGLTexture& operator=(const OpenGLTexture&) = delete;

    /// Puts the part `changed` of a 32-bit image there, all of it when there was none of its size.
    void upload(const QImage& image, const QRegion& changed);
    /// Makes room to draw into, of that size or the largest there can be in its place. What was drawn there
    /// before stays where the size does. False when there is no room.
    [[nodiscard]] bool makeTarget(QSize size);
    [[nodiscard]] FramebufferTarget target() const;
    /// Reads back the rectangle of what was drawn, to the same place in an RGB32 image.
    void readInto(QImage& image, const QRect& rect) const;

    /// Its name in OpenGL; 0 while there is nothing.
    [[nodiscard]] unsigned name() const { return m_texture; }
    [[nodiscard]] QSize size() const { return m_size; }
    /// Whether red and blue lie the other way round than OpenGL takes them.
    [[nodiscard]] bool isBlueFirst() const { return m_framebuffer == 0; }

private:
    void make(QSize size);
    void uploadPart(const QImage& image, const QRect& rect);
    void free();

    OpenGLDevice& m_device;
    unsigned m_texture = 0;
    unsigned m_framebuffer = 0;
    QSize m_size;
};

} // namespace kestro
