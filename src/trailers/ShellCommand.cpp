#include "trailers/ShellCommand.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

namespace {

constexpr int lookEvery = 20;      // milliseconds between two looks at whether to go on
constexpr qint64 limitBlock = 512; // bytes, the unit of the shell's "ulimit -f"
constexpr int exitOfSignal = 128;

/// What the new process starts with: signals as a fresh process has them, a group of its own.
class SpawnSettings final {
public:
    SpawnSettings()
    {
        posix_spawn_file_actions_init(&m_files);
        posix_spawn_file_actions_addopen(&m_files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&m_files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_adddup2(&m_files, STDOUT_FILENO, STDERR_FILENO);
        posix_spawn_file_actions_addclosefrom_np(&m_files, STDERR_FILENO + 1);

        sigset_t signals;
        sigfillset(&signals);
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&m_attributes, &signals);
        posix_spawnattr_setpgroup(&m_attributes, 0);
        posix_spawnattr_setflags(&m_attributes,
                                 POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    }
    ~SpawnSettings()
    {
        posix_spawnattr_destroy(&m_attributes);
        posix_spawn_file_actions_destroy(&m_files);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t* files() const { return &m_files; }
    [[nodiscard]] const posix_spawnattr_t* attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_files{};
    posix_spawnattr_t m_attributes{};
};

Error cannotRun(int reason)
{
    return {QStringLiteral("cannot run a command: ") + QString::fromLocal8Bit(std::strerror(reason))};
}

std::optional<int> exitStatus(pid_t process)
{
    int status = 0;
    const pid_t ended = waitpid(process, &status, WNOHANG);
    if (ended == 0 || (ended < 0 && errno == EINTR)) return {};
    if (ended < 0) return EXIT_FAILURE; // somebody else has collected it
    return WIFSIGNALED(status) ? exitOfSignal + WTERMSIG(status) : WEXITSTATUS(status);
}

int waitFor(pid_t process, const std::function<bool()>& isWanted)
{
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    pollfd watched{handle, POLLIN, 0};
    auto status = exitStatus(process);
    while (!status) {
        poll(&watched, handle < 0 ? 0 : 1, lookEvery);
        if (!isWanted()) kill(-process, SIGKILL);
        status = exitStatus(process);
    }
    if (handle >= 0) close(handle);
    return *status;
}

} // namespace

Result<int> runShellCommand(const QByteArray& command, qint64 fileLimit,
                            const std::function<bool()>& isWanted)
{
    QByteArray script = "ulimit -f " + QByteArray::number(fileLimit / limitBlock) + "; exec " + command;
    char shell[] = "sh";
    char option[] = "-c";
    char* const words[] = {shell, option, script.data(), nullptr};
    const SpawnSettings settings;
    pid_t process = 0;
    const int failure =
        posix_spawn(&process, "/bin/sh", settings.files(), settings.attributes(), words, environ);
    if (failure != 0) return cannotRun(failure);
    return waitFor(process, isWanted);
}

} // namespace kestro
