#pragma once

#include <QRegion>
#include <QSize>

#include <memory>

class QOpenGLFunctions;

namespace kestro {

struct FramebufferTarget;
class OpenGLTexture;

/// Draws textures as rectangles: all that composing takes. Between begin and end OpenGL's state is its own;
/// after end it is that of a new context, but for what Layer lets a layer change. Owned by the device; its
/// context is current. Main thread; pixels from the top left. Tested by OpenGLRendererTest.
class QuadProgram final {
public:
    /// Null when the driver does not take the program.
    [[nodiscard]] static std::unique_ptr<QuadProgram> create(QOpenGLFunctions& functions);
    QuadProgram(const QuadProgram&) = delete;
    QuadProgram& operator=(const QuadProgram&) = delete;

    /// Takes it off the graphics card, which the end of the context does as well. The last call.
    void free();

    /// Which row of the framebuffer is the top one: a window's is its last.
    enum class Top { FirstRow, LastRow };
    void begin(const FramebufferTarget& target, Top top);
    void end();

    /// How the texture's pixels meet what is there.
    struct Look {
        float opacity = 1;
        bool isSolid = false; ///< the texture's alpha counts as 1
    };
    /// Draws the part in `region` of the texture, which is stretched over `place`. Its alpha is
    /// premultiplied.
    void draw(const OpenGLTexture& texture, const QRect& place, const QRegion& region, Look look);
    void fillBlack(const QRegion& region, float opacity);

private:
    explicit QuadProgram(QOpenGLFunctions& functions)
        : m_gl(functions)
    {
    }
    [[nodiscard]] bool build();
    [[nodiscard]] bool addShader(unsigned kind, const char* source) const;
    void drawRegion(const QRect& place, const QRegion& region);
    void setLook(Look look, bool isBlueFirst, bool isPlain);

    QOpenGLFunctions& m_gl;
    unsigned m_program = 0;
    unsigned m_corners = 0; ///< the buffer that rectangles go through
    int m_scale = -1;
    int m_shift = -1;
    int m_opacity = -1;
    int m_options = -1;
};

} // namespace kestro
