#pragma once

#include "platform/base/ChildProgram.h"
#include "platform/base/Descriptor.h"

#include <chrono>
#include <csignal>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace kestro {

/// How a process ended.
struct ChildEnd {
    int status = 0; ///< its exit status
    int signal = 0; ///< the one that ended it; 0 where it left by itself

    [[nodiscard]] bool isSuccess() const { return status == 0 && signal == 0; }
};

/// A process of ours that runs a program. Where it has a group of its own, that is signalled as a whole.
/// Owned by who started it; any one thread.
class ChildProcess final {
public:
    using EndHandler = std::function<void(const ChildEnd&)>;

    /// The error is the reason alone, in the system's words; that there is no such program is one.
    [[nodiscard]] static Result<std::unique_ptr<ChildProcess>> start(const ChildProgram& program);
    /// Kills it where its end is not known yet, and waits 50 ms at most for that; the event loop of an
    /// application takes leave of it then.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] pid_t number() const { return m_number; }

    /// Has its end told once, by the event loop of this thread. The handler may take the process away.
    void whenEnded(EndHandler handler);
    /// Its end, as soon as it has ended, waiting that long at most; nothing where it goes on.
    [[nodiscard]] std::optional<ChildEnd> waitForEnd(std::chrono::milliseconds most);
    /// The same, however long that takes.
    [[nodiscard]] ChildEnd waitForEnd();

    void terminate() { send(SIGTERM); }
    void kill() { send(SIGKILL); }
    /// Asks it to end, and kills it where it has not by then; waits that long at most for each.
    void stop(std::chrono::milliseconds patience);
    /// Lets it go on alone until it ends by itself. Main thread, of an application.
    static void leave(std::unique_ptr<ChildProcess> process);

private:
    ChildProcess(pid_t number, Descriptor events, bool hasGroup);

    void send(int signal) const;
    void takeLeave();

    pid_t m_number;
    Descriptor m_events; ///< of the process: readable once it has ended
    bool m_hasGroup;
    bool m_isLeft = false;
    std::optional<ChildEnd> m_end;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kestro
