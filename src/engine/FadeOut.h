#pragma once

#include "platform/display/view/Picture.h"
#include "platform/display/view/Window.h"
#include "presentation/AfterImageView.h"

#include <memory>

namespace kestro {

class Timer;
class TimerSource;

/// The picture that a movie leaves behind where it was, fading away within a second in a transparent window
/// of its own. One fade at a time. Owned by the engine. Main thread.
class FadeOut final {
public:
    explicit FadeOut(TimerSource& timers);
    ~FadeOut();

    /// Makes the window on `screen` (null: a window without a screen), parked and empty. Until then nothing
    /// fades.
    void open(Screen* screen);
    /// Ends a fade and closes the window.
    void close();
    /// Ends a fade in its middle.
    void stopTimer();
    /// Holds a fade up; afterwards it goes on with a step at once. Nothing where none runs.
    void pause();
    void resume();

    /// Whether a picture left now would fade: there is a window, and no fade runs.
    [[nodiscard]] bool isReady() const { return m_backWindow && !m_aiTimer; }
    [[nodiscard]] bool isFading() const { return m_aiTimer != nullptr; }
    /// Until the fade that runs is over; 0 where none runs.
    [[nodiscard]] double secondsLeft() const;

    /// Leaves `image` (a null one: nothing) at `frame` on the desk, and starts its fade. Nothing unless
    /// isReady().
    void leaveBehind(const Picture& image, const Rect& frame);

    /// Puts a still into the window at that place on the desk; a null one empties and parks the window.
    void setCapturedImageFrame(const Picture& image, const Rect& frame);
    /// Starts the fade of what the window shows, from solid.
    void startFadeout();
    /// One step of the fade: 0.05 less opaque; after the last one the window is empty, parked and solid
    /// again.
    void fadeoutWindow();

    /// The window, null while there is none.
    [[nodiscard]] const Window* backWindow() const { return m_backWindow.get(); }

private:
    void startTimer();

    TimerSource& m_timers;
    AfterImageView m_aiview{{{0, 0}, {1, 1}}};
    std::unique_ptr<Window> m_backWindow;
    std::unique_ptr<Timer> m_aiTimer;
    bool m_isPaused = false;
};

} // namespace kestro
