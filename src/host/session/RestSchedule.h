#pragma once

#include "platform/saver/SaverControl.h"
#include "platform/session/PowerRule.h"

#include <chrono>
#include <functional>
#include <memory>

namespace kestro {

class Timer;
class TimerSource;

/// When the savers of a process rest: for good once their time is over, and until then while power is to be
/// saved. Owned by the program. Main thread.
class RestSchedule final {
public:
    /// `onRest` is called with each change of how they are to rest.
    RestSchedule(TimerSource& timers, std::function<void(Rest)> onRest);
    ~RestSchedule();

    /// They are off once so much time has gone by from now; never for a span of zero.
    void stopAfter(std::chrono::seconds span);
    /// What is to be shown in view of the power there is, and the reason as PowerRule has it.
    void setPower(PowerChoice choice, const QString& reason);
    [[nodiscard]] Rest rest() const { return m_rest; }

private:
    void timeIsOver(std::chrono::seconds span);
    void change();

    TimerSource& m_timers;
    std::function<void(Rest)> m_onRest;
    std::unique_ptr<Timer> m_end; ///< while their time runs
    bool m_isOver = false;
    PowerChoice m_power = PowerChoice::Play;
    Rest m_rest = Rest::None;
};

} // namespace kestro
