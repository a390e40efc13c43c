#pragma once

#include "platform/display/surface/MonitorSurface.h"
#include "platform/display/surface/x11/SeenWatch.h"
#include "platform/display/surface/x11/StayOnTop.h"
#include "platform/display/surface/x11/X11Canvas.h"

namespace kestro {

/// A monitor's surface under X11. Its window is not the window manager's: so it covers the monitor, panels
/// too, with any window manager and with none. Owned by its screen. Main thread. Tested by X11DesktopTest.
class X11Surface final : public MonitorSurface {
public:
    /// Placed but not shown. Null where the desktop is not X11, or its pixels are not ours.
    [[nodiscard]] static std::unique_ptr<X11Surface> create(QScreen& monitor, OpenGL* openGL);

    [[nodiscard]] QImage& canvas() override { return m_canvas->image(); }
    [[nodiscard]] QSize pixelSize() override { return m_canvas->size(); }
    void present(const QRegion& changed) override;
    void placeOn(QScreen& monitor) override;
    void show() override;
    void hide() override;
    void setWatched(bool isWatched) override;

private:
    explicit X11Surface(OpenGL* openGL);

    void cover(QScreen& monitor);

    std::unique_ptr<X11Canvas> m_canvas;
    std::unique_ptr<StayOnTop> m_stayOnTop; ///< while shown
    std::unique_ptr<SeenWatch> m_seen;      ///< likewise
    bool m_isWatched = true;
};

} // namespace kestro
