#pragma once

#include "platform/display/surface/MonitorSurface.h"

#include <QBackingStore>

namespace kestro {

/// A monitor's surface through Qt's own means, for desktops other than X11. Owned by its screen. Main thread.
/// Tested by QtDesktopTest.
class BackingStoreSurface final : public MonitorSurface {
public:
    explicit BackingStoreSurface(OpenGL* openGL);

    [[nodiscard]] QImage& canvas() override { return m_canvas; }
    void present(const QRegion& changed) override;
    void placeOn(QScreen& monitor) override;
    void show() override;
    void leaveOpenGL() override;

private:
    void copyToStore(const QRegion& changed);

    QImage m_canvas;
    std::unique_ptr<QBackingStore> m_store; ///< none while OpenGL shows the pictures
};

} // namespace kestro
