#pragma once

#include "platform/display/desktop/Timer.h"

namespace kestro {

/// Timers of the running event loop. Owned by its desktop; needs a QCoreApplication. Main thread.
/// Tested by TimerTest.
class QtTimerSource final : public TimerSource {
public:
    [[nodiscard]] std::unique_ptr<Timer> repeating(double seconds, std::function<void()> action) override;
};

} // namespace kestro
