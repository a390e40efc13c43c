#pragma once

#include "platform/display/surface/Surface.h"

namespace kestro {

/// A screen that is an image in memory. Owned by its screen; for tests and for pictures drawn off screen.
/// Main thread; pixels. Tested by ImageDesktopTest.
class ImageSurface final : public Surface {
public:
    ImageSurface(QSize pixels, double pixelRatio);

    [[nodiscard]] QImage& canvas() override { return m_canvas; }
    void present(const QRegion& changed) override;
    [[nodiscard]] double pixelRatio() const override { return m_pixelRatio; }
    void setCursorHidden(bool hidden) override { m_cursorHidden = hidden; }
    void setWatched(bool isWatched) override { m_isWatched = isWatched; }

    /// Starts over in black at that size.
    void resize(QSize pixels);
    /// What was presented so far, as one picture of its own.
    [[nodiscard]] const QImage& image() const { return m_shown; }
    [[nodiscard]] const QRegion& lastPresented() const { return m_lastPresented; }
    [[nodiscard]] int presentCount() const { return m_presentCount; }
    [[nodiscard]] bool isCursorHidden() const { return m_cursorHidden; }
    [[nodiscard]] bool isWatched() const { return m_isWatched; }
    /// Acts as if it were covered, or not any more.
    void setSeen(bool isSeen) { tellSeen(isSeen); }
    /// Acts as if a person did that.
    void sendInput(const InputEvent& event) const;

private:
    QImage m_canvas;
    QImage m_shown;
    double m_pixelRatio;
    QRegion m_lastPresented;
    int m_presentCount = 0;
    bool m_cursorHidden = false;
    bool m_isWatched = true;
};

} // namespace kestro
