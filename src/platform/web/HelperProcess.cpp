#include "platform/web/HelperProcess.h"

#include <QFile>
#include <QProcessEnvironment>

#include <csignal>
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

/// Our environment without what leads to the desktop, what would change how the browser confines itself, and
/// the user's own folders. Root alone has no sandbox there, so that root's tests may say that they do
/// without.
QStringList helperEnvironment(const QString& home)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    const bool mayLackSandbox = geteuid() == 0;
    const QStringList names = environment.keys();
    for (const QString& name : names) {
        const bool isBrowsers = name.startsWith(u"QTWEBENGINE_") || name.startsWith(u"QT_") ||
                                name.startsWith(u"QML") || name.startsWith(u"LD_");
        if (isBrowsers && !(mayLackSandbox && name == u"QTWEBENGINE_DISABLE_SANDBOX"))
            environment.remove(name);
    }
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "DBUS_SESSION_BUS_ADDRESS",
                             "SESSION_MANAGER", "XSCREENSAVER_WINDOW", "DESKTOP_STARTUP_ID", "BROWSER"})
        environment.remove(QString::fromLatin1(name));
    for (const char* name :
         {"HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        environment.insert(QString::fromLatin1(name), home);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    return environment.toStringList();
}

/// In the helper no signal is blocked, each has its default action, and of our open files it has the line and
/// the three standard ones alone.
class SpawnRules final {
public:
    explicit SpawnRules(int channel)
    {
        posix_spawn_file_actions_init(&m_files);
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
                                 POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
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

std::unique_ptr<HelperProcess> HelperProcess::start(const QString& program, const QStringList& arguments,
                                                    const QString& home, Descriptor channel)
{
    Words words(QStringList(program) + arguments);
    Words environment(helperEnvironment(home));
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
