#pragma once

#include "presentation/AfterImageView.h"

#include <functional>
#include <memory>
#include <optional>

namespace kestro {

class Clock;
class Screen;
class Timer;
class TimerSource;
class Window;

/// The last frame of a movie, which fades away above the next one in a window of its own. Nothing of it is
/// there where no time was given for it. Owned by the engine. Main thread.
class Dissolve final {
public:
    /// A movie that does not begin is waited for so long, in seconds.
    static constexpr double patience = 2;

    /// It takes that many seconds; 0 for none.
    Dissolve(double seconds, TimerSource& timers, const Clock& clock);
    ~Dissolve();

    [[nodiscard]] bool isWanted() const { return m_seconds > 0; }
    /// Shows `picture` at `place` on the desk, solid until `hasBegun` says that there is a movie below it,
    /// and fades it from then on. Nothing where there is no picture, and where none is wanted.
    void begin(const Picture& picture, const Rect& place, Screen* screen, std::function<bool()> hasBegun);
    /// Takes the picture away in its middle.
    void end();
    [[nodiscard]] bool isRunning() const { return m_window != nullptr; }
    /// The window of the picture, null while there is none.
    [[nodiscard]] const Window* shownWindow() const { return m_window.get(); }

private:
    void step();

    const double m_seconds;
    TimerSource& m_timers;
    const Clock& m_clock;
    AfterImageView m_view{{{0, 0}, {1, 1}}};
    std::function<bool()> m_hasBegun;
    std::unique_ptr<Window> m_window;
    std::unique_ptr<Timer> m_timer;
    double m_shownAt = 0;
    std::optional<double> m_fadesFrom; ///< nothing until the next movie has begun
};

} // namespace kestro
