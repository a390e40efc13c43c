#pragma once

#include "platform/display/view/Geometry.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace kestro {

class Compositor;
class Desktop;
class Surface;
class Window;

/// One monitor (or the window or image that stands for one): its place on the desk, the windows on it from
/// bottom to top, and the surface they are composited into. Owned by its desktop. Main thread.
/// Tested by DisplayTest.
class Screen final {
public:
    Screen(Desktop& desktop, const Rect& frame, std::unique_ptr<Surface> surface);
    ~Screen();

    [[nodiscard]] Desktop& desktop() const { return m_desktop; }
    /// In global coordinates: points, the first screen's lower left corner is (0, 0).
    [[nodiscard]] Rect frame() const { return m_frame; }
    /// The windows on it keep their places on it.
    void setFrame(const Rect& frame);
    /// The size of the real monitor it lies on: its own, unless it is but a part of one, as a widget is.
    [[nodiscard]] Size monitorSize() const { return m_monitorSize.value_or(m_frame.size); }
    void setMonitorSize(Size size) { m_monitorSize = size; }
    [[nodiscard]] Surface& surface() const { return *m_surface; }
    /// What the display server calls the monitor; empty where it has no name.
    [[nodiscard]] const QString& name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }

    /// Windows that are shown, bottom to top: by level, then by order.
    [[nodiscard]] const std::vector<Window*>& windows() const { return m_windows; }

    /// Draws every view marked for display, composes what changed, and shows it. Nothing when nothing
    /// changed. Runs by itself once an event loop turn after a change; called directly by who must not wait.
    void update();

    /// Has update() run soon; several calls in one turn make one update.
    void scheduleUpdate();

    /// Leaves the surface to somebody else, who is called when all of the picture is wanted anew; from now on
    /// nothing is composed into it. With no function it shows this screen's windows again.
    void lendSurface(std::function<void()> onWanted);

private:
    friend class Window;

    void attach(Window& window) { m_attached.push_back(&window); }
    void detach(Window& window);
    void order(Window& window, bool inFront);
    void orderOut(Window& window);
    void drawMarkedViews();
    void repair();

    Desktop& m_desktop;
    Rect m_frame;
    QString m_name;
    std::optional<Size> m_monitorSize;
    std::unique_ptr<Surface> m_surface;
    std::unique_ptr<Compositor> m_compositor;
    std::function<void()> m_onWanted; ///< set while the surface is lent
    std::vector<Window*> m_windows;
    std::vector<Window*> m_attached; ///< every window of this screen, shown or not
    QObject m_turn;                  ///< receives the queued call
    bool m_scheduled = false;
    bool m_updating = false;
};

} // namespace kestro
