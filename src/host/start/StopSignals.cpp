#include "host/start/StopSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

constexpr int handled[] = {SIGTERM, SIGINT, SIGHUP};
constexpr unsigned patience = 2; // seconds

// What a signal handler may touch. The pipe outlives every StopSignals: a handler may be just about to write.
int writeEnd = -1;
int readEnd = -1;
volatile std::sig_atomic_t signalsSeen = 0;

void setAction(int signal, void (*action)(int))
{
    struct sigaction wanted = {};
    wanted.sa_handler = action;
    wanted.sa_flags = SA_RESTART;
    sigemptyset(&wanted.sa_mask);
    sigaction(signal, &wanted, nullptr);
}

void endAtOnce(int)
{
    _exit(1);
}

extern "C" void noteSignal(int signal)
{
    if (signalsSeen != 0) {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
        return;
    }
    signalsSeen = 1;
    alarm(patience);
    const char token = static_cast<char>(signal);
    [[maybe_unused]] const ssize_t written = write(writeEnd, &token, 1);
}

bool isIgnored(int signal)
{
    struct sigaction current = {};
    return sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN;
}

void openPipe()
{
    int ends[2] = {-1, -1};
    if (readEnd >= 0 || pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    readEnd = ends[0];
    writeEnd = ends[1];
}

} // namespace

StopSignals::StopSignals(std::function<void(int signal)> onStop)
    : m_onStop(std::move(onStop))
{
    openPipe();
    signalsSeen = 0;
    m_notifier = std::make_unique<QSocketNotifier>(readEnd, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { received(); });
    setAction(SIGALRM, endAtOnce);
    for (const int signal : handled)
        if (!isIgnored(signal)) setAction(signal, noteSignal);
}

StopSignals::~StopSignals()
{
    alarm(0);
    for (const int signal : handled)
        if (!isIgnored(signal)) setAction(signal, SIG_DFL);
}

void StopSignals::received()
{
    char token = 0;
    if (read(readEnd, &token, 1) != 1) return;
    alarm(0);
    if (const auto onStop = std::exchange(m_onStop, nullptr)) onStop(token);
}

} // namespace kestro
