#pragma once

#include "platform/base/Result.h"
#include "platform/saver/HackGuardStatus.h"

#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace kestro {

/// A running hack: a program that draws in the X11 window that it is handed, in a process group of its own
/// and at low priority, guarded by a helper program that ends it with us. Owned by the view that shows it.
/// Main thread.
class HackProcess final {
public:
    using EndHandler = std::function<void(HackGuardStatus)>;

    /// Starts `command`, a program's path and its arguments, on that window of the display that DISPLAY
    /// names. `onEnd` is called, from the event loop, when it has ended by itself; it may take the process
    /// away. A program that cannot be run counts as ended. The error is one line.
    [[nodiscard]] static Result<std::unique_ptr<HackProcess>> start(const QStringList& command,
                                                                    std::uint32_t window, EndHandler onEnd);
    /// Ends the hack and whatever it started: asked first, killed half a second later. Never waits for that.
    ~HackProcess();
    HackProcess(const HackProcess&) = delete;
    HackProcess& operator=(const HackProcess&) = delete;

private:
    HackProcess(int guard, int guardEvents, int leash, EndHandler onEnd);

    void ended();

    int m_guard;       ///< process identifier
    int m_guardEvents; ///< descriptor of the guard's process; readable once it has ended
    int m_leash;       ///< descriptor; the guard ends the hack when it is closed
    EndHandler m_onEnd;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kestro
