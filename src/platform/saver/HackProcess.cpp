#include "platform/saver/HackProcess.h"

#include "platform/base/Paths.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace kestro {

namespace {

/// Words in the form that a new process is given them in.
class WordList final {
public:
    explicit WordList(const QStringList& words)
    {
        for (const QString& word : words)
            m_words.push_back(QFile::encodeName(word));
        for (QByteArray& word : m_words)
            m_pointers.push_back(word.data());
        m_pointers.push_back(nullptr);
    }

    [[nodiscard]] char** pointers() { return m_pointers.data(); }

private:
    std::vector<QByteArray> m_words;
    std::vector<char*> m_pointers;
};

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

/// A session of its own, so that no terminal's signal reaches it; nothing of ours but its end of the leash.
int spawn(const QString& guardProgram, const QStringList& words, const QStringList& variables, int leash,
          pid_t& process)
{
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_t files;
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_init(&files);
    sigset_t set;
    sigemptyset(&set);
    posix_spawnattr_setsigmask(&attributes, &set);
    sigfillset(&set);
    posix_spawnattr_setsigdefault(&attributes, &set);
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
    posix_spawn_file_actions_adddup2(&files, leash, STDIN_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    WordList arguments(words);
    WordList environment(variables);
    const int error = posix_spawn(&process, QFile::encodeName(guardProgram).constData(), &files, &attributes,
                                  arguments.pointers(), environment.pointers());
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    return error;
}

/// Of a process: readable once it has ended. glibc's own name for it is not for C++ before 2.37.
int descriptorOf(pid_t process)
{
    return static_cast<int>(syscall(SYS_pidfd_open, process, 0));
}

HackGuardStatus statusOf(pid_t guard)
{
    int status = 0;
    pid_t waited = -1;
    do
        waited = waitpid(guard, &status, 0);
    while (waited < 0 && errno == EINTR);
    if (waited != guard || !WIFEXITED(status)) return HackGuardStatus::Crashed;
    const auto told = static_cast<HackGuardStatus>(WEXITSTATUS(status));
    const bool isKnown = told == HackGuardStatus::Ended || told == HackGuardStatus::NotStarted;
    return isKnown ? told : HackGuardStatus::Crashed;
}

/// Takes leave of a guard that is about to end, as soon as it has. Goes then, or with the application.
void awaitGuard(pid_t guard, int guardEvents)
{
    auto owned = std::make_unique<QSocketNotifier>(guardEvents, QSocketNotifier::Read);
    QSocketNotifier* const notifier = owned.get();
    QObject::connect(notifier, &QObject::destroyed, [guard, guardEvents] {
        waitpid(guard, nullptr, WNOHANG);
        close(guardEvents);
    });
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier] {
        notifier->setEnabled(false);
        notifier->deleteLater();
    });
    owned.release()->setParent(QCoreApplication::instance());
}

Error systemError(const QString& what, int number)
{
    return {QStringLiteral("%1: %2").arg(what, QString::fromLocal8Bit(std::strerror(number)))};
}

} // namespace

Result<std::unique_ptr<HackProcess>> HackProcess::start(const QStringList& command, std::uint32_t window,
                                                        EndHandler onEnd)
{
    const QString guardProgram = packageLibraries() + QStringLiteral("/kestro-hack-guard");
    QStringList words{guardProgram};
    words += command;
    words += {QStringLiteral("--window-id"), QStringLiteral("0x%1").arg(window, 0, 16)};
    int leash[2] = {-1, -1};
    if (pipe2(leash, O_CLOEXEC) != 0) return systemError(QStringLiteral("no pipe"), errno);
    pid_t guard = -1;
    const int error = spawn(guardProgram, words, environmentFor(command.value(0), window), leash[0], guard);
    close(leash[0]);
    const int guardEvents = error == 0 ? descriptorOf(guard) : -1;
    if (guardEvents >= 0)
        return std::unique_ptr<HackProcess>(new HackProcess(guard, guardEvents, leash[1], std::move(onEnd)));
    const int reason = error == 0 ? errno : error;
    close(leash[1]); // a guard that did start ends by this
    if (error == 0) statusOf(guard);
    return systemError(guardProgram, reason);
}

HackProcess::HackProcess(int guard, int guardEvents, int leash, EndHandler onEnd)
    : m_guard(guard)
    , m_guardEvents(guardEvents)
    , m_leash(leash)
    , m_onEnd(std::move(onEnd))
    , m_notifier(std::make_unique<QSocketNotifier>(guardEvents, QSocketNotifier::Read))
{
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [this] { ended(); });
}

HackProcess::~HackProcess()
{
    close(m_leash);
    if (m_guard < 0) return;
    m_notifier.reset();
    awaitGuard(m_guard, m_guardEvents);
}

void HackProcess::ended()
{
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater(); // this is inside its signal
    const HackGuardStatus status = statusOf(std::exchange(m_guard, -1));
    close(m_guardEvents);
    const EndHandler onEnd = std::move(m_onEnd);
    onEnd(status); // may take this away
}

} // namespace kestro
