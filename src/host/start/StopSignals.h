#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace kestro {

/// Turns SIGTERM, SIGINT and SIGHUP into a call, with the signal, on the main thread's event loop. A second
/// signal ends the process at once, as does a main thread that does not come to its event loop within two
/// seconds (stuck in a dead file system, say). A signal that the process was started to ignore stays ignored.
/// One at a time; lives as long as the event loop. Main thread.
class StopSignals final {
public:
    explicit StopSignals(std::function<void(int signal)> onStop);
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

private:
    void received();

    std::function<void(int)> m_onStop;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kestro
