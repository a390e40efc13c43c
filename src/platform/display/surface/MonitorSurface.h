#pragma once

#include "platform/display/surface/Surface.h"
#include "platform/display/surface/SurfaceWindow.h"

#include <memory>

class QScreen;

namespace kestro {

class OpenGL;

/// A surface over one whole monitor, in a native window of its own. Owned by its screen. Main thread.
/// Tested by QtDesktopTest.
class MonitorSurface : public Surface {
public:
    /// Covers the monitor as it is now: after it was made, and again when the monitor moved or changed.
    virtual void placeOn(QScreen& monitor) = 0;
    virtual void show() = 0;
    virtual void hide() { m_window.hide(); }

    /// A person did something at a place of the monitor that its window may not have heard of.
    void tell(const InputEvent& event) const
    {
        if (m_onInput) m_onInput(event);
    }

    [[nodiscard]] double pixelRatio() const override { return m_window.devicePixelRatio(); }
    void setCursorHidden(bool hidden) override;
    [[nodiscard]] QWindow* openGLWindow() override { return m_isForOpenGL ? &m_window : nullptr; }
    void leaveOpenGL() override { m_isForOpenGL = false; }

protected:
    /// `openGL` shows the pictures; null for software.
    MonitorSurface(Qt::WindowFlags flags, OpenGL* openGL);

    /// The window has nothing to show any more.
    void repair();

    SurfaceWindow m_window;

private:
    bool m_isForOpenGL;
};

/// The kind of surface that this desktop's windows want, placed but not shown, for pictures by `openGL`, or
/// by software where that is null.
[[nodiscard]] std::unique_ptr<MonitorSurface> makeMonitorSurface(QScreen& monitor, OpenGL* openGL);

} // namespace kestro
