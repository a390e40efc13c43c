#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace kestro {

class Clock;
class Cursor;
class NotificationCenter;
class OpenGL;
class Random;
class Screen;
class TimerSource;

/// What one process sees of its desktop: the screens, the pointer, timers, notices, time and random numbers.
/// The real ones are QtDesktop (a surface per monitor), WindowDesktop (one that another program hands over)
/// and ImageDesktop (screens that are images in memory, for tests and pictures). Owned by the program;
/// outlives every view and window. Main thread.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// The monitors, first one first; never null. May be empty while a desk is being re-plugged.
    [[nodiscard]] virtual std::vector<Screen*> screens() const = 0;
    /// The first monitor, or null when there is none.
    [[nodiscard]] Screen* mainScreen() const
    {
        const auto all = screens();
        return all.empty() ? nullptr : all.front();
    }

    /// Whether that screen is the first of all monitors, counting those too that this process does not see.
    [[nodiscard]] virtual bool isFirst(const Screen& screen) const { return &screen == mainScreen(); }

    /// What the screens are drawn with, and movies may draw with too; null where that is done in software.
    [[nodiscard]] virtual std::shared_ptr<OpenGL> openGL() const { return nullptr; }

    [[nodiscard]] virtual Cursor& cursor() = 0;
    [[nodiscard]] virtual TimerSource& timers() = 0;
    [[nodiscard]] virtual NotificationCenter& notifications() = 0;
    [[nodiscard]] virtual const Clock& clock() const = 0;
    [[nodiscard]] virtual Random& random() = 0;

    /// Called after a screen came or was resized, moved or laid on another monitor, and before one goes.
    struct ScreenObserver {
        std::function<void(Screen&)> added;
        std::function<void(Screen&)> resized;
        std::function<void(Screen&)> removed;
    };
    void setScreenObserver(ScreenObserver observer) { m_observer = std::move(observer); }

protected:
    ScreenObserver m_observer;
};

} // namespace kestro
