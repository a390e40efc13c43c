#pragma once

#include <chrono>

namespace kestro {

// The signals that ask for the end: TERM, INT and HUP. They are blocked in every thread, and one thread that
// does nothing else takes them, so that they count whatever the main thread is about. Any thread, unless said
// otherwise; nothing here waits. Tested by StopSignalsTest.

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr int slowness =
    20; // of a process that a sanitizer watches, and that looks for leaks at its end
#else
inline constexpr int slowness = 1;
#endif

/// From a stop signal that somebody listens to until the process is left, whatever it is about;
/// KESTRO_PATIENCE in the environment names others, up to `longestSave`.
inline constexpr std::chrono::milliseconds patienceWithSignal{120 * slowness};
/// The same from the moment that the process itself begins to leave, by a key or a window that goes.
inline constexpr std::chrono::milliseconds patienceWithEnd{2000 * slowness};
/// How much longer a process lives that a stop signal meets while a TimeToSave is there.
inline constexpr std::chrono::milliseconds longestSave{5000};

/// Blocks the stop signals, but for those that the process was started to ignore, and starts the thread that
/// takes them. A signal that nobody listens to ends the process at once. First thing in a process, before it
/// has any other thread; does nothing when called again. A process that is forked has the signals unblocked;
/// one that posix_spawn() makes is to be given them back there.
void takeStopSignals();

/// Has the first stop signal told: the descriptor that is answered is then readable, as an eventfd that holds
/// the number of the signal. The process has `patienceWithSignal` from the signal on; one that is not gone by
/// then is left by that signal, and so is one that gets a second signal. Main thread.
[[nodiscard]] int listenToStopSignals();

/// Takes no notice of signals that come from now on: they end the process at once. What a signal that was
/// told has begun goes on. Main thread.
void stopListening();

/// Ends the process with a failure unless it is gone in `patienceWithEnd` and `longer`, counted from the last
/// call. Main thread.
void beginEnd(std::chrono::milliseconds longer = {});

/// Ends the process as `signal` does where it has its default action.
[[noreturn]] void endBySignal(int signal);

/// While one is there a stop signal waits for what is written, up to `longestSave`: for commands whose work
/// would be lost, never for what covers a screen. Main thread, one at a time.
class TimeToSave final {
public:
    TimeToSave();
    ~TimeToSave();
    TimeToSave(const TimeToSave&) = delete;
    TimeToSave& operator=(const TimeToSave&) = delete;
};

} // namespace kestro
