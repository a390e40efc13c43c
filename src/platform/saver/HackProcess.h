#pragma once

#include "platform/base/ChildProcess.h"
#include "platform/base/Descriptor.h"
#include "platform/saver/HackGuardStatus.h"

#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>

namespace kestro {

/// A running hack: a program that draws in the X11 window that it is handed, in a process group of its own
/// and at low priority, guarded by a helper program that ends it with us. Owned by the view that shows it.
/// Main thread. Tested by HackHostTest.
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
    HackProcess(std::unique_ptr<ChildProcess> guard, Descriptor leash, EndHandler onEnd);

    void ended(const ChildEnd& end);

    std::unique_ptr<ChildProcess> m_guard;
    Descriptor m_leash; ///< the guard ends the hack when it is closed
    EndHandler m_onEnd;
};

} // namespace kestro
