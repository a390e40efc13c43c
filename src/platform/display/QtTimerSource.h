#pragma once

#include "platform/display/Timer.h"

#include <vector>

class QEventLoop;

namespace kestro {

/// Timers of the running event loop. Owned by its desktop; needs a QCoreApplication. Main thread.
class QtTimerSource final : public TimerSource {
public:
    [[nodiscard]] std::unique_ptr<Timer> repeating(double seconds, std::function<void()> action) override;
    void wait(double seconds) override;
    void stopWaiting() override;

private:
    std::vector<QEventLoop*> m_waits; ///< those under way, the innermost last
};

} // namespace kestro
