#pragma once

#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/QtTimerSource.h"
#include "platform/display/desktop/ScreensCursor.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/Geometry.h"

#include <QObject>

class QScreen;

namespace kestro {

class MonitorSurface;
class Overlay;
class SessionInput;

/// The desktop that the running QGuiApplication sees: a screen with a surface of its own for each monitor, as
/// they come, change and go. The first screen is the primary monitor, its lower left corner is (0, 0). Owned
/// by the program; goes before the application does. Main thread; points.
class QtDesktop final : public Desktop {
public:
    QtDesktop(const Clock& clock, Random& random);
    ~QtDesktop() override;

    /// Shows the surfaces, now and of monitors that come later. Until then nothing is on the screen.
    /// The input focus of an X11 session goes to this process with them.
    void showSurfaces();
    /// Has keys told by their names, which costs questions to an X server at each; before the surfaces are
    /// shown.
    void tellKeys() { m_tellsKeys = true; }
    /// Takes the surfaces from the screens. What a person does still reaches no other program.
    void hideSurfaces();
    /// Calls `done` once nothing is down any more that a person pressed while the surfaces were shown, at the
    /// latest after `longestPress`. It may be called before this returns.
    void whenLetGo(std::function<void()> done);
    static constexpr unsigned longestPress = 5; ///< seconds
    /// Gives the input focus to who had it before the surfaces were shown, unless somebody else has it now.
    void giveBackFocus();

    [[nodiscard]] std::vector<Screen*> screens() const override;
    [[nodiscard]] std::shared_ptr<OpenGL> openGL() const override { return m_openGL; }
    [[nodiscard]] Cursor& cursor() override { return m_cursor; }
    [[nodiscard]] TimerSource& timers() override { return m_timers; }
    [[nodiscard]] NotificationCenter& notifications() override { return m_notifications; }
    [[nodiscard]] const Clock& clock() const override { return m_clock; }
    [[nodiscard]] Random& random() override { return m_random; }

private:
    struct Monitor {
        QScreen* qtScreen;
        MonitorSurface* surface; ///< the screen's
        std::unique_ptr<Screen> screen;
    };

    void add(QScreen* qtScreen);
    void plugIn(QScreen* qtScreen);
    void pullOut(QScreen* qtScreen);
    void rearrange();
    void putPrimaryFirst();
    void followMonitor(Monitor& monitor);
    void surfaceGone();
    void claimKeyboard();
    void inputHeard(InputEvent::Kind kind, InputEvent::Key key);

    const Clock& m_clock;
    Random& m_random;
    std::shared_ptr<OpenGL> m_openGL; ///< shared as OpenGL says
    QtTimerSource m_timers;
    NotificationCenter m_notifications;
    ScreensCursor m_cursor{*this};
    std::unique_ptr<Overlay> m_overlay; ///< null where the desktop has none
    std::vector<Monitor> m_monitors;
    bool m_isShown = false;
    bool m_tellsKeys = false;
    std::unique_ptr<SessionInput> m_input; ///< once shown; null where the desktop is not X11
    QObject m_listener;                    ///< receives the application's signals; goes first
};

} // namespace kestro
