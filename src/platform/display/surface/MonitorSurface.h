#pragma once

#include "platform/display/surface/Surface.h"
#include "platform/display/surface/SurfaceWindow.h"

#include <functional>
#include <memory>

class QScreen;

namespace kestro {

class OpenGL;
class Overlay;

/// A surface over one whole monitor, in a native window of its own. Owned by its screen. Main thread.
/// Tested by QtDesktopTest.
class MonitorSurface : public Surface {
public:
    /// The part of the desk that it covers on that monitor, in points.
    [[nodiscard]] virtual QRect placeOf(const QScreen& monitor) const;
    /// Covers the monitor as it is now: after it was made, and again when the monitor moved or changed.
    virtual void placeOn(QScreen& monitor) = 0;
    virtual void show() = 0;
    virtual void hide() { m_window.hide(); }
    /// Whether the display server took it from a monitor that is still there. It never comes back.
    [[nodiscard]] virtual bool isGone() const { return false; }
    /// Called when it is to be placed anew.
    void setChangeHandler(std::function<void()> handler) { m_onChange = std::move(handler); }
    /// Called once it is gone.
    void setGoneHandler(std::function<void()> handler) { m_onGone = std::move(handler); }
    /// Asks for the keyboard again, which may have gone elsewhere with another surface.
    virtual void claimKeyboard() {}
    /// Has it ask whenever it is shown and no window of this program has the keyboard: for one that came when
    /// others had gone.
    virtual void insistOnKeyboard() {}

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
    void tellChange() const
    {
        if (m_onChange) m_onChange();
    }
    void tellGone() const
    {
        if (m_onGone) m_onGone();
    }

    SurfaceWindow m_window;

private:
    std::function<void()> m_onChange;
    std::function<void()> m_onGone;
    bool m_isForOpenGL;
};

/// The kind of surface that this desktop's windows want, placed but not shown, for pictures by `openGL`, or
/// by software where that is null; in `overlay` where there is one.
[[nodiscard]] std::unique_ptr<MonitorSurface> makeMonitorSurface(QScreen& monitor, OpenGL* openGL,
                                                                 Overlay* overlay);

} // namespace kestro
