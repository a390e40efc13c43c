#pragma once

#include "platform/base/Result.h"
#include "platform/display/gl/OpenGL.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>

class QOpenGLFunctions;

namespace kestro {

class QuadProgram;

/// OpenGL through Qt's context, which is made current on each screen's window in turn. Shared as OpenGL says;
/// all of its owners go before the application does. Main thread. Tested by OpenGLRendererTest.
class OpenGLDevice final : public OpenGL, public std::enable_shared_from_this<OpenGLDevice> {
public:
    /// The error says in a few words what could not be had.
    [[nodiscard]] static Result<std::shared_ptr<OpenGLDevice>> create();
    ~OpenGLDevice() override;
    OpenGLDevice(const OpenGLDevice&) = delete;
    OpenGLDevice& operator=(const OpenGLDevice&) = delete;

    [[nodiscard]] bool isHardware() const override { return m_isHardware; }
    [[nodiscard]] bool isLost() const override { return m_isLost; }
    bool makeCurrent() override;
    [[nodiscard]] void* function(const char* name) const override;
    [[nodiscard]] DisplayConnection display() const override;
    bool renderToMemory(const PixelTarget& target, const Draw& draw) override;
    void prepare(QWindow& window) override;
    [[nodiscard]] std::unique_ptr<Renderer> makeRenderer(Surface& surface) override;

    /// Makes the context current on that surface; where that cannot be done it is lost.
    bool makeCurrentOn(QSurface& surface);
    /// Shows in that window, on which the context is current, what was drawn into its framebuffer.
    void swap(QSurface& window) { m_context.swapBuffers(&window); }
    /// For who finds that the context works no more. Says so in one log line, once.
    void lose();

    // Of the context, which is to be current.
    [[nodiscard]] QOpenGLFunctions& functions() const { return *m_context.functions(); }
    [[nodiscard]] QuadProgram& program() const { return *m_program; }
    [[nodiscard]] int mostTextureSide() const { return m_mostTextureSide; }
    [[nodiscard]] bool canUploadParts() const { return m_canUploadParts; }
    /// The framebuffer of the surface that it is current on.
    [[nodiscard]] unsigned surfaceFramebuffer() const { return m_context.defaultFramebufferObject(); }

private:
    OpenGLDevice() = default;
    [[nodiscard]] Result<void> open();

    QOpenGLContext m_context;
    QOffscreenSurface m_offScreen;
    std::unique_ptr<QuadProgram> m_program;
    int m_mostTextureSide = 0;
    int m_windows = 0; ///< that were prepared
    bool m_canUploadParts = false;
    bool m_isHardware = false;
    bool m_isLost = false;
};

/// Whether OpenGL of that name works on the processor, which then draws faster without it.
[[nodiscard]] bool isSoftwareOpenGL(const QByteArray& rendererName);

} // namespace kestro
