#pragma once

#include "platform/display/desktop/Timer.h"

#include <memory>
#include <vector>

namespace kestro {

class ManualClock;

/// Timers that run when their clock is turned by hand. For tests and for pictures drawn off screen. Outlives
/// its timers. Main thread; seconds. Tested by TimerTest.
class ManualTimerSource final : public TimerSource {
public:
    explicit ManualTimerSource(ManualClock& clock);
    ~ManualTimerSource() override;

    /// Turns the clock forward by `seconds` and runs every action that falls due on the way, in order of
    /// time, each as often as its span passes.
    void advance(double seconds);

    [[nodiscard]] std::unique_ptr<Timer> repeating(double seconds, std::function<void()> action) override;

private:
    class ManualTimer;

    [[nodiscard]] ManualTimer* nextDue(double latest) const;
    void turnClockTo(double time);

    ManualClock& m_clock;
    std::vector<ManualTimer*> m_timers;
};

} // namespace kestro
