#include "platform/web/HelperProcess.h"

#include "platform/web/HelperEnvironment.h"

#include <QFile>
#include <QProcessEnvironment>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <vector>

namespace kestro {

namespace {

/// Milliseconds: a browser takes some to give its memory back, on a busy machine many.
constexpr int patience = 50;

/// The words of a program's arguments or environment as the system takes them.
class Words final {
public:
    explicit Words(const QStringList& words)
    {
        for (const QString& word : words)
            m_bytes.push_back(QFile::encodeName(word));
        for (QByteArray& each : m_bytes)
            m_pointers.push_back(each.data());
        m_pointers.push_back(nullptr);
    }
    [[nodiscard]] char** data() { return m_pointers.data(); }

private:
    std::vector<QByteArray> m_bytes;
    std::vector<char*> m_pointers;
};

/// In the helper no signal is blocked, each has its default action, it has no terminal, and of our open files
/// it has the line and where it may complain alone.
class SpawnRules final {
public:
    explicit SpawnRules(int channel)
    {
        posix_spawn_file_actions_init(&m_files);
        posix_spawn_file_actions_addopen(&m_files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&m_files, channel, HelperProcess::channelNumber);
        posix_spawn_file_actions_addclosefrom_np(&m_files, HelperProcess::channelNumber + 1);
        posix_spawnattr_init(&m_attributes);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setsigdefault(&m_attributes, &all);
        posix_spawnattr_setflags(&m_attributes,
                                 POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnRules()
    {
        posix_spawn_file_actions_destroy(&m_files);
        posix_spawnattr_destroy(&m_attributes);
    }
    SpawnRules(const SpawnRules&) = delete;
    SpawnRules& operator=(const SpawnRules&) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t* files() const { return &m_files; }
    [[nodiscard]] const posix_spawnattr_t* attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_files{};
    posix_spawnattr_t m_attributes{};
};

} // namespace

std::unique_ptr<HelperProcess> HelperProcess::start(const QString& program, const QString& home,
                                                    const QStringList& arguments, Descriptor channel)
{
    Words words(QStringList{program, home} + arguments);
    Words environment(helperEnvironment(QProcessEnvironment::systemEnvironment(), home, geteuid() == 0));
    const SpawnRules rules(channel.number());
    pid_t process = 0;
    if (posix_spawn(&process, QFile::encodeName(program).constData(), rules.files(), rules.attributes(),
                    words.data(), environment.data()) != 0)
        return nullptr;
    return std::unique_ptr<HelperProcess>(new HelperProcess(process));
}

HelperProcess::~HelperProcess()
{
    kill(-m_process, SIGKILL);
    const Descriptor watched(static_cast<int>(syscall(SYS_pidfd_open, m_process, 0)));
    pollfd end{watched.number(), POLLIN, 0};
    if (watched.isOpen()) poll(&end, 1, patience);
    waitpid(m_process, nullptr, WNOHANG);
}

} // namespace kestro
