#include "platform/saver/HackProcess.h"

#include "platform/base/Paths.h"
#include "platform/base/Reasons.h"

#include <QFileInfo>
#include <QProcessEnvironment>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

/// Hacks look for their helpers on the search path; and one that looks for its window there as well must not
/// find the one that we were handed ourselves.
QStringList environmentFor(const QString& program, std::uint32_t window)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XSCREENSAVER_WINDOW"), QStringLiteral("0x%1").arg(window, 0, 16));
    const QString path = environment.value(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
    environment.insert(QStringLiteral("PATH"), QFileInfo(program).path() + u':' + path);
    return environment.toStringList();
}

HackGuardStatus statusOf(const ChildEnd& end)
{
    const auto told = static_cast<HackGuardStatus>(end.status);
    const bool isKnown = told == HackGuardStatus::Ended || told == HackGuardStatus::NotStarted;
    return isKnown && end.signal == 0 ? told : HackGuardStatus::Crashed;
}

} // namespace

Result<std::unique_ptr<HackProcess>> HackProcess::start(const QStringList& command, std::uint32_t window,
                                                        EndHandler onEnd)
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return Error{QStringLiteral("no pipe: ") + systemReason(errno)};
    const Descriptor guards(ends[0]);
    Descriptor leash(ends[1]);
    const ChildProgram program{.file = packageLibraries() + QStringLiteral("/kestro-hack-guard"),
                               .arguments = command + QStringList{QStringLiteral("--window-id"),
                                                                  QStringLiteral("0x%1").arg(window, 0, 16)},
                               .environment = environmentFor(command.value(0), window),
                               .descriptors = {{guards.number(), STDIN_FILENO},
                                               {STDOUT_FILENO, STDOUT_FILENO},
                                               {STDERR_FILENO, STDERR_FILENO}},
                               .group = ChildProgram::Group::OwnSession};
    auto guard = ChildProcess::start(program);
    if (!guard) return Error{program.file + QStringLiteral(": ") + guard.error()};
    return std::unique_ptr<HackProcess>(
        new HackProcess(std::move(guard.value()), std::move(leash), std::move(onEnd)));
}

HackProcess::HackProcess(std::unique_ptr<ChildProcess> guard, Descriptor leash, EndHandler onEnd)
    : m_guard(std::move(guard))
    , m_leash(std::move(leash))
    , m_onEnd(std::move(onEnd))
{
    m_guard->whenEnded([this](const ChildEnd& end) { ended(end); });
}

HackProcess::~HackProcess()
{
    m_leash.reset();
    if (m_guard) ChildProcess::leave(std::move(m_guard));
}

void HackProcess::ended(const ChildEnd& end)
{
    const auto guard = std::move(m_guard);
    const EndHandler onEnd = std::move(m_onEnd);
    onEnd(statusOf(end)); // may take this away
}

} // namespace kestro
