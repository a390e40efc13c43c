#pragma once

#include "platform/display/Surface.h"
#include "platform/display/SurfaceWindow.h"

#include <memory>

class QScreen;

namespace kestro {

/// A surface over one whole monitor, in a native window of its own. Owned by its screen. Main thread.
class MonitorSurface : public Surface {
public:
    /// Covers the monitor as it is now: after it was made, and again when the monitor moved or changed.
    virtual void placeOn(QScreen& monitor) = 0;
    virtual void show() = 0;

    [[nodiscard]] double pixelRatio() const override { return m_window.devicePixelRatio(); }
    void setCursorHidden(bool hidden) override;

protected:
    explicit MonitorSurface(Qt::WindowFlags flags);

    SurfaceWindow m_window;
};

/// The kind of surface that this desktop's windows want, placed but not shown.
[[nodiscard]] std::unique_ptr<MonitorSurface> makeMonitorSurface(QScreen& monitor);

} // namespace kestro
