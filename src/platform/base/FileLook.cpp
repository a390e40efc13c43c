#include "platform/base/FileLook.h"

#include "platform/base/Paths.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

namespace {

/// What the asking process is given: no file of ours, which it might hold open for ever, and signals as a
/// fresh process has them.
class Surroundings final {
public:
    Surroundings()
    {
        posix_spawn_file_actions_init(&m_files);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&m_files, stream, "/dev/null", O_RDWR, 0);
        posix_spawn_file_actions_addclosefrom_np(&m_files, STDERR_FILENO + 1);
        posix_spawnattr_init(&m_attributes);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&m_attributes, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        posix_spawnattr_setflags(&m_attributes,
                                 POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
    }
    ~Surroundings()
    {
        posix_spawn_file_actions_destroy(&m_files);
        posix_spawnattr_destroy(&m_attributes);
    }
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t* files() const { return &m_files; }
    [[nodiscard]] const posix_spawnattr_t* attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_files{};
    posix_spawnattr_t m_attributes{};
};

std::optional<pid_t> startLook(const QString& path)
{
    QByteArray program = QFile::encodeName(packageLibraries() + QStringLiteral("/kestro-file-look"));
    QByteArray name = QFile::encodeName(path);
    std::array<char*, 3> arguments{program.data(), name.data(), nullptr};
    std::array<char*, 1> environment{nullptr};
    const Surroundings given;
    pid_t process = 0;
    const int fault = posix_spawn(&process, program.constData(), given.files(), given.attributes(),
                                  arguments.data(), environment.data());
    return fault == 0 ? std::optional(process) : std::nullopt;
}

} // namespace

bool isFileThere(const QString& path)
{
    const auto look = startLook(path);
    if (!look) return QFileInfo::exists(path); // no process to be had
    int status = 0;
    while (waitpid(*look, &status, 0) < 0)
        if (errno != EINTR) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace kestro
