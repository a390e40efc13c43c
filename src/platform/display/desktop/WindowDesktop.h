#pragma once

#include "platform/base/Result.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/QtTimerSource.h"
#include "platform/display/desktop/ScreensCursor.h"

#include <QObject>

#include <cstdint>

namespace kestro {

class ForeignWindowSurface;

/// The desktop of a process that is handed one X11 window to draw in, as xscreensaver hands one over for each
/// monitor. It has one screen, which follows the window; its frame tells where on the desk that is. Owned by
/// the program; goes before the application does. Main thread; points.
class WindowDesktop final : public Desktop {
public:
    /// The desktop in the window of that number; with none, in the root window. The error is one line.
    [[nodiscard]] static Result<std::unique_ptr<WindowDesktop>> create(std::optional<std::uint32_t> window,
                                                                       const Clock& clock, Random& random);
    ~WindowDesktop() override;

    /// Called when the window is no more.
    void setGoneHandler(std::function<void()> handler);
    /// Until then nothing is drawn.
    void showSurface();

    [[nodiscard]] std::vector<Screen*> screens() const override { return {m_screen.get()}; }
    /// Whether the window lies on the first monitor.
    [[nodiscard]] bool isFirst(const Screen& screen) const override;
    [[nodiscard]] Cursor& cursor() override { return m_cursor; }
    [[nodiscard]] TimerSource& timers() override { return m_timers; }
    [[nodiscard]] NotificationCenter& notifications() override { return m_notifications; }
    [[nodiscard]] const Clock& clock() const override { return m_clock; }
    [[nodiscard]] Random& random() override { return m_random; }

private:
    WindowDesktop(std::unique_ptr<ForeignWindowSurface> surface, const Clock& clock, Random& random);

    void follow();

    const Clock& m_clock;
    Random& m_random;
    QtTimerSource m_timers;
    NotificationCenter m_notifications;
    ScreensCursor m_cursor{*this};
    ForeignWindowSurface& m_surface; ///< the screen's
    std::unique_ptr<Screen> m_screen;
    QObject m_listener; ///< receives the application's signals; goes first
};

} // namespace kestro
