#include "host/start/StopThread.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace kestro {

namespace {

using std::chrono::milliseconds;
using Moment = std::int64_t; // milliseconds of the steady clock

constexpr Moment never = std::numeric_limits<Moment>::max();
constexpr std::size_t stackSize = 256 * 1024;
constexpr int statusOfSignal = 128;
/// Who ends others may signal the process and then its group (timeout), or send a HUP after the TERM (the end
/// of a session): that is one wish.
constexpr milliseconds echo{50};

// What the thread and the others share. The descriptors are those of the process for good.
int signals = -1;
int wake = -1;
int told = -1;
bool isTaken = false;
milliseconds patience = patienceWithSignal;
std::atomic<bool> hasListener = false;
std::atomic<bool> isSaving = false;
std::atomic<Moment> savedAt = 0;
std::atomic<Moment> endAt = never;

Moment now()
{
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<milliseconds>(since).count();
}

void add(int events, std::uint64_t number)
{
    [[maybe_unused]] const auto written = write(events, &number, sizeof number);
}

void drain(int events)
{
    std::uint64_t number = 0;
    [[maybe_unused]] const auto taken = read(events, &number, sizeof number);
}

bool isIgnored(int signal)
{
    struct sigaction current = {};
    return sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN;
}

/// The usual one, or what the person wants on a machine that is slower than most.
milliseconds wantedPatience()
{
    const char* const text = std::getenv("KESTRO_PATIENCE");
    const long wanted = text ? std::strtol(text, nullptr, 10) : 0;
    return wanted > 0 ? std::min<milliseconds>(milliseconds(wanted), longestSave) : patienceWithSignal;
}

/// A signal that is ignored would arrive all the same once it is blocked.
sigset_t stopSignals()
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        if (!isIgnored(signal)) sigaddset(&set, signal);
    return set;
}

/// What the thread knows of the first signal.
class Watch final {
public:
    void goOn()
    {
        pollfd waits[] = {{signals, POLLIN, 0}, {wake, POLLIN, 0}};
        poll(waits, 2, timeLeft());
        drain(wake);
        signalfd_siginfo info{};
        while (read(signals, &info, sizeof info) == sizeof info)
            hear(static_cast<int>(info.ssi_signo));
        if (m_signal != 0 && now() >= signalEnd()) endBySignal(m_signal);
        if (now() >= endAt) _exit(EXIT_FAILURE);
    }

private:
    void hear(int signal)
    {
        if (m_signal == 0 && hasListener) {
            m_signal = signal;
            m_heardAt = now();
            return add(told, static_cast<std::uint64_t>(signal));
        }
        const bool isSameWish = signal == m_signal || (m_signal == SIGTERM && signal == SIGHUP);
        const bool isEcho = isSameWish && now() < m_heardAt + echo.count();
        if (!isEcho) endBySignal(signal);
    }

    [[nodiscard]] Moment signalEnd() const
    {
        if (m_signal == 0) return never;
        const Moment latest = m_heardAt + longestSave.count();
        if (isSaving) return latest;
        return std::max(m_heardAt, std::min<Moment>(savedAt, latest)) + patience.count();
    }

    [[nodiscard]] int timeLeft() const
    {
        const Moment end = std::min<Moment>(signalEnd(), endAt);
        return end == never ? -1 : static_cast<int>(std::max<Moment>(0, end - now()));
    }

    int m_signal = 0;
    Moment m_heardAt = 0;
};

/// It takes no memory from the heap: whatever another thread does there, it goes on.
void* watchSignals(void*)
{
    Watch watch;
    for (;;)
        watch.goOn();
    return nullptr;
}

bool startThread()
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, stackSize);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    pthread_t thread{};
    const bool isStarted = pthread_create(&thread, &attributes, watchSignals, nullptr) == 0;
    pthread_attr_destroy(&attributes);
    return isStarted;
}

/// In a process that was forked, which lacks the thread.
void beWithoutThread()
{
    isTaken = false;
    hasListener = false;
    const sigset_t set = stopSignals();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace

void takeStopSignals()
{
    if (isTaken) return;
    isTaken = true;
    [[maybe_unused]] static const int registered = pthread_atfork(nullptr, nullptr, beWithoutThread);
    patience = wantedPatience();
    const sigset_t set = stopSignals();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    signals = signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    wake = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    told = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    const bool isHeard = signals >= 0 && wake >= 0 && told >= 0 && startThread();
    // Nobody would hear them: they end the process as they do any other.
    if (!isHeard) pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

int listenToStopSignals()
{
    hasListener = true;
    return told;
}

void stopListening()
{
    hasListener = false;
}

void beginEnd(milliseconds longer)
{
    endAt = now() + (patienceWithEnd + longer).count();
    add(wake, 1);
}

void endBySignal(int signal)
{
    std::signal(signal, SIG_DFL);
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, signal);
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
    std::raise(signal);
    _exit(statusOfSignal + signal); // the first process of a container, which no signal ends
}

TimeToSave::TimeToSave()
{
    isSaving = true;
}

TimeToSave::~TimeToSave()
{
    savedAt = now();
    isSaving = false;
    add(wake, 1);
}

} // namespace kestro
