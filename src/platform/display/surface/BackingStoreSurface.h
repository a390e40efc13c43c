#pragma once

#include "platform/display/surface/MonitorSurface.h"

#include <QBackingStore>

namespace kestro {

/// A monitor's surface through Qt's own means, for desktops other than X11. Owned by its screen. Main thread.
/// Tested by QtDesktopTest.
class BackingStoreSurface : public MonitorSurface {
public:
    BackingStoreSurface(Qt::WindowFlags flags, OpenGL* openGL);

    [[nodiscard]] QImage& canvas() override { return m_canvas; }
    void present(const QRegion& changed) override;
    void placeOn(QScreen& monitor) override;
    void show() override;
    void leaveOpenGL() override;

protected:
    /// What the canvas has when it was placed anew.
    [[nodiscard]] QSize wantedPixels() const;

    QScreen* m_monitor = nullptr; ///< as it was placed: Qt may believe its window to be on another one

private:
    void copyToStore(const QRegion& changed);

    QSize m_size; ///< points, as it was placed
    QImage m_canvas;
    std::unique_ptr<QBackingStore> m_store; ///< none while OpenGL shows the pictures
};

} // namespace kestro
