#pragma once

#include <functional>
#include <memory>

namespace kestro {

/// One running repeating timer; it stops when destroyed. It may be destroyed inside its own action. Main
/// thread.
class Timer {
public:
    virtual ~Timer() = default;

    /// Runs the action now, out of turn; the next turn comes as it would have.
    virtual void fire() = 0;
};

/// Makes timers that run on the main thread's event loop.
class TimerSource {
public:
    virtual ~TimerSource() = default;

    /// A timer that runs `action` every `seconds`, first after one such span. Owned by the caller.
    [[nodiscard]] virtual std::unique_ptr<Timer> repeating(double seconds, std::function<void()> action) = 0;
};

} // namespace kestro
