#pragma once

#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/ScreensCursor.h"
#include "platform/display/view/Geometry.h"

#include <QSize>

namespace kestro {

class ImageSurface;

/// A desktop whose screens are images in memory. Owned by a test, or by the program that draws pictures off
/// screen. Main thread; points.
class ImageDesktop final : public Desktop {
public:
    /// One screen for each frame, in global coordinates, of `pixelRatio` pixels a point. `openGL` draws them;
    /// null for software.
    ImageDesktop(const std::vector<Rect>& frames, double pixelRatio, TimerSource& timers, const Clock& clock,
                 Random& random, std::shared_ptr<OpenGL> openGL = nullptr);
    ~ImageDesktop() override;

    [[nodiscard]] std::vector<Screen*> screens() const override;
    [[nodiscard]] std::shared_ptr<OpenGL> openGL() const override { return m_openGL; }
    [[nodiscard]] Cursor& cursor() override { return m_cursor; }
    [[nodiscard]] TimerSource& timers() override { return m_timers; }
    [[nodiscard]] NotificationCenter& notifications() override { return m_notifications; }
    [[nodiscard]] const Clock& clock() const override { return m_clock; }
    [[nodiscard]] Random& random() override { return m_random; }

    // A monitor is plugged in, pulled out, or changes its resolution; the observer is told as on a real desk.
    Screen& addScreen(const Rect& frame);
    void removeScreen(Screen& screen);
    void resizeScreen(Screen& screen, const Rect& frame);

    /// The image that stands for a screen of an ImageDesktop.
    [[nodiscard]] static ImageSurface& surfaceOf(const Screen& screen);

private:
    Screen& plugIn(const Rect& frame);
    [[nodiscard]] QSize pixelsOf(const Rect& frame) const;

    double m_pixelRatio;
    TimerSource& m_timers;
    const Clock& m_clock;
    Random& m_random;
    std::shared_ptr<OpenGL> m_openGL; ///< shared as OpenGL says
    NotificationCenter m_notifications;
    ScreensCursor m_cursor{*this};
    std::vector<std::unique_ptr<Screen>> m_screens;
};

} // namespace kestro
