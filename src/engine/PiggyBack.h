#pragma once

#include "platform/display/view/Geometry.h"

#include <memory>

namespace kestro {

class Desktop;
class ScreenSaverView;
class Timer;
class Window;

/// Piggy-back running: the host has another saver's view, and the movies play above it. Once that view is in
/// a window, a transparent window of its own is laid over it for the saver, which is then driven from here,
/// at the interval that it asks for, until the view's window closes or the application ends. Owned by the
/// saver that it runs, which it keeps alive meanwhile; does nothing for one that the host runs directly. Main
/// thread. Tested by MySaverBackgroundTest.
class PiggyBack final {
public:
    explicit PiggyBack(Desktop& desktop);
    ~PiggyBack();

    /// Waits for `otherSaver` to be in a window, then runs `saver` above it.
    void begin(std::shared_ptr<ScreenSaverView> saver, const std::shared_ptr<ScreenSaverView>& otherSaver);

    /// The view behind; null when there is none, or none any more.
    [[nodiscard]] std::shared_ptr<ScreenSaverView> otherSaver() const { return m_otherSaver.lock(); }
    /// The saver as long as it is kept alive from here, for operations in which it may be stopped; else null.
    [[nodiscard]] std::shared_ptr<ScreenSaverView> saver() const { return m_saver; }
    /// Whether the saver is in a window of its own.
    [[nodiscard]] bool hasWindow() const { return m_mySaverWindow != nullptr; }

    /// At each tick of the saver: makes sure to be told when the window of the view behind closes.
    void watchForClose();
    /// Both the same: stops the saver, unless it has no view behind it any more.
    void windowWillClose() { backgroundEnds(); }
    void applicationWillTerminate() { backgroundEnds(); }

    /// Ends the ticks.
    void stopTimers();
    /// Closes the window and forgets the view behind. Answers what kept the saver alive, to be let go of once
    /// it is stopped; null when nothing did.
    [[nodiscard]] std::shared_ptr<ScreenSaverView> close();

    /// Holds the ticks up; afterwards they go on with one at once. Nothing where there are none.
    void pause();
    void resume();

private:
    void findScreen();
    void openWindow(Window& windowBehind, const ScreenSaverView& behind);
    void startTicks();
    void tick();
    void follow(const ScreenSaverView& behind);
    void backgroundEnds();

    Desktop& m_desktop;
    std::shared_ptr<ScreenSaverView> m_saver;    ///< who owns this: let go of at the end
    std::weak_ptr<ScreenSaverView> m_otherSaver; ///< the host's
    std::unique_ptr<Timer> m_tmpTimer;           ///< while waiting
    std::unique_ptr<Timer> m_myTimer;
    double m_interval = 0; ///< of m_myTimer, seconds
    std::unique_ptr<Window> m_mySaverWindow;
    bool m_observerAdded = false;
    bool m_isPaused = false;
};

} // namespace kestro
