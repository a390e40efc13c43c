#pragma once

#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/ScreensCursor.h"

class QWidget;

namespace kestro {

class WidgetSurface;

/// What goes on in a widget's desktop by the clock and by random numbers. All of it outlives the widget.
struct SurfaceServices {
    TimerSource& timers;
    const Clock& clock;
    Random& random;

    /// Those of the event loop and of this machine, one set for the process.
    [[nodiscard]] static SurfaceServices real();
};

/// The desktop that a kestro view sees which is shown in a widget: one screen, the widget, its lower left
/// corner at (0, 0), drawn in software, as small as it is a part of its real monitor. Owned by that widget.
/// Main thread; points. Tested by SurfaceWidgetTest.
class WidgetDesktop final : public Desktop {
public:
    WidgetDesktop(QWidget& widget, const SurfaceServices& services);
    ~WidgetDesktop() override;

    [[nodiscard]] Screen& screen() const { return *m_screen; }
    [[nodiscard]] const WidgetSurface& surface() const { return m_surface; }
    /// Takes on the widget's size and density and its monitor's size as they are now. Answers whether they
    /// changed, of which the observer was told then.
    bool follow();

    [[nodiscard]] std::vector<Screen*> screens() const override { return {m_screen.get()}; }
    [[nodiscard]] Cursor& cursor() override { return m_cursor; }
    [[nodiscard]] TimerSource& timers() override { return m_services.timers; }
    [[nodiscard]] NotificationCenter& notifications() override { return m_notifications; }
    [[nodiscard]] const Clock& clock() const override { return m_services.clock; }
    [[nodiscard]] Random& random() override { return m_services.random; }

private:
    WidgetDesktop(QWidget& widget, const SurfaceServices& services, std::unique_ptr<WidgetSurface> surface);

    QWidget& m_widget;
    SurfaceServices m_services;
    NotificationCenter m_notifications;
    ScreensCursor m_cursor{*this};
    WidgetSurface& m_surface; ///< the screen's
    std::unique_ptr<Screen> m_screen;
};

} // namespace kestro
