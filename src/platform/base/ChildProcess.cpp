#include "platform/base/ChildProcess.h"

#include "platform/base/Reasons.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QThread>

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

using std::chrono::milliseconds;

/// Of one that is killed: large ones take some to give their memory back, on a busy machine many.
constexpr milliseconds patience{50};
constexpr milliseconds forEver{-1};

/// Glibc's own name for it is not for C++ before 2.37.
Descriptor eventsOf(pid_t process)
{
    return Descriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
}

bool isInApplication()
{
    const auto* const application = QCoreApplication::instance();
    return application && application->thread() == QThread::currentThread();
}

} // namespace

Result<std::unique_ptr<ChildProcess>> ChildProcess::start(const ChildProgram& program)
{
    const auto process = startProgram(program);
    if (!process) return process.failure();
    Descriptor events = eventsOf(process.value());
    const int reason = errno;
    const bool isWatched = events.isOpen();
    std::unique_ptr<ChildProcess> child(
        new ChildProcess(process.value(), std::move(events), program.group != ChildProgram::Group::Ours));
    if (isWatched) return child;
    return Error{systemReason(reason)};
}

ChildProcess::ChildProcess(pid_t number, Descriptor events, bool hasGroup)
    : m_number(number)
    , m_events(std::move(events))
    , m_hasGroup(hasGroup)
{
}

ChildProcess::~ChildProcess()
{
    if (m_end) return;
    if (!m_isLeft) kill();
    const bool isOver = waitForEnd(m_isLeft ? milliseconds(0) : patience).has_value();
    if (isOver || m_isLeft || !isInApplication()) return;
    leave(std::unique_ptr<ChildProcess>(new ChildProcess(m_number, std::move(m_events), m_hasGroup)));
}

void ChildProcess::whenEnded(EndHandler handler)
{
    m_notifier = std::make_unique<QSocketNotifier>(m_events.number(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [this, handle = std::move(handler)] {
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater(); // this is inside its signal
        handle(waitForEnd());
    });
}

std::optional<ChildEnd> ChildProcess::waitForEnd(milliseconds most)
{
    pollfd watched{m_events.number(), POLLIN, 0}; // one without a number is waited for that long
    while (!m_end && poll(&watched, 1, static_cast<int>(most.count())) < 0 && errno == EINTR) {
    }
    takeLeave();
    return m_end;
}

ChildEnd ChildProcess::waitForEnd()
{
    while (!waitForEnd(forEver)) {
    }
    return *m_end;
}

void ChildProcess::takeLeave()
{
    if (m_end) return;
    int status = 0;
    const pid_t ended = waitpid(m_number, &status, WNOHANG);
    if (ended == 0 || (ended < 0 && errno == EINTR)) return;
    if (ended < 0)
        m_end = ChildEnd{EXIT_FAILURE, 0}; // somebody else took leave of it
    else if (WIFSIGNALED(status))
        m_end = ChildEnd{0, WTERMSIG(status)};
    else
        m_end = ChildEnd{WEXITSTATUS(status), 0};
}

void ChildProcess::send(int signal) const
{
    if (!m_end) ::kill(m_hasGroup ? -m_number : m_number, signal);
}

void ChildProcess::stop(milliseconds most)
{
    send(SIGTERM);
    if (waitForEnd(most)) return;
    kill();
    static_cast<void>(waitForEnd(most));
}

void ChildProcess::leave(std::unique_ptr<ChildProcess> process)
{
    process->m_isLeft = true;
    process->m_notifier.reset();
    auto* const notifier =
        new QSocketNotifier(process->m_events.number(), QSocketNotifier::Read, QCoreApplication::instance());
    // The notifier has it, and goes when it ends, or with the application.
    const std::shared_ptr<ChildProcess> left(std::move(process));
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier, left] {
        notifier->setEnabled(false);
        notifier->deleteLater();
    });
}

} // namespace kestro
