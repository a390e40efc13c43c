#pragma once

#include "platform/display/view/Window.h"
#include "platform/saver/SaverControl.h"

#include <functional>
#include <memory>

namespace kestro {

class NotificationCenter;
class Screen;
class ScreenSaverView;
class Timer;

/// One screen's saver: a black window over the whole screen, the view in it, and the view's ticks. Owned by
/// the session; shared because whoever is told of a tick may end the session. The screen must outlive every
/// call but the destructor. Main thread.
class HostedSaver final : public std::enable_shared_from_this<HostedSaver> {
public:
    using TickHandler = std::function<void(HostedSaver&)>;

    /// Shows the window, black until the view draws. `onTick` runs after each tick.
    HostedSaver(Screen& screen, std::shared_ptr<ScreenSaverView> view, TickHandler onTick);
    ~HostedSaver();

    /// Starts the view, then ticks it at the interval that it asks for, until stopped. Nothing once stopped.
    void start();
    /// Ends the ticks, stops the view (not one that was never started), and closes the window.
    void stop();
    /// Has the saver rest like that from now on, whenever it runs: where it is off, the screen is black.
    void rest(Rest how);
    /// Whether anybody can see the screen: where nobody can, the saver is held, or, where it rests already,
    /// off.
    void setSeen(bool isSeen);
    [[nodiscard]] bool isResting() const { return m_rest != Rest::None; }
    /// Fits the window, and the view with it, to its screen as it is now.
    void fitToScreen();

    [[nodiscard]] Screen& screen() const { return m_screen; }
    [[nodiscard]] ScreenSaverView& view() const { return *m_view; }
    /// What may be done with the saver besides; null where it offers nothing.
    [[nodiscard]] SaverControl* control() const { return SaverControl::of(*m_view, m_screen); }
    /// Ticks that are over: the view's, or those of a saver that runs above the view by itself.
    [[nodiscard]] int ticks() const { return m_ticks; }

private:
    enum class State { Made, Running, Stopped };

    [[nodiscard]] Rest restNow() const;
    void applyRest();
    void drawCurtain();
    void tick();
    void saverAboveTicked();
    void tickIsOver();
    void schedule();

    Screen& m_screen;
    std::shared_ptr<ScreenSaverView> m_view; ///< shared: in piggy-back running the saver refers to it as well
    Window m_window;
    NotificationCenter& m_notifications;
    TickHandler m_onTick;
    Size m_monitorSize;
    std::unique_ptr<Timer> m_timer;
    double m_interval = 0; ///< of m_timer, seconds
    State m_state = State::Made;
    Rest m_rest = Rest::None; ///< as asked for
    bool m_isSeen = true;
    std::unique_ptr<Window> m_curtain; ///< black over all windows of the saver, while it is off
    bool m_isSaverAbove = false;       ///< one that runs by itself; its ticks are counted then
    int m_ticks = 0;
};

} // namespace kestro
