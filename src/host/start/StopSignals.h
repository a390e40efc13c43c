#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace kestro {

/// Turns the first SIGTERM, SIGINT or SIGHUP into a call, with the signal, on the main thread's event loop. A
/// thread of its own takes the signal, so that the process is gone `patienceWithSignal` later whatever the
/// main thread does: by that signal, if by nothing before. That holds on when this is destroyed. A second
/// signal ends the process at once. One that the process was started to ignore stays ignored.
/// One at a time; lives as long as the event loop. Main thread; takeStopSignals() came before.
class StopSignals final {
public:
    explicit StopSignals(std::function<void(int signal)> onStop);
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

private:
    void received();

    std::function<void(int)> m_onStop;
    int m_told;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kestro
