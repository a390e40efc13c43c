#include "platform/base/Paths.h"

#include "platform/base/PrivateFolder.h"

#include <QDir>
#include <QFileInfo>

#include <dlfcn.h>
#include <pwd.h>
#include <unistd.h>

namespace kestro {

namespace {

QString fromEnvironment(const char* name)
{
    const QString path = qEnvironmentVariable(name);
    return path.isEmpty() ? QString() : QDir::cleanPath(QDir(path).absolutePath());
}

QString homeOfAccount()
{
    const passwd* account = getpwuid(getuid());
    return account == nullptr ? QDir::rootPath() : QDir::cleanPath(QFile::decodeName(account->pw_dir));
}

QString libraryFile()
{
    Dl_info found = {};
    if (dladdr(reinterpret_cast<const void*>(&packagePrefix), &found) == 0 || found.dli_fname == nullptr)
        return {};
    return QFileInfo(QFile::decodeName(found.dli_fname)).canonicalFilePath();
}

// A folder below the one that the session gives to each user, which is gone after the session.
QString sessionTemporaryFolder()
{
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!QDir::isAbsolutePath(session) || !isOwnFolder(session)) return {};
    const QString path = QDir::cleanPath(session) + QStringLiteral("/kestro");
    return makePrivateFolder(path) ? path : QString();
}

// A folder of this process alone, taken away when the process ends.
class ProcessTemporaryFolder final {
public:
    ~ProcessTemporaryFolder()
    {
        if (!m_path.isEmpty() && getpid() == m_maker) QDir(m_path).removeRecursively();
    }

    QString path()
    {
        if (m_path.isEmpty() || getpid() != m_maker || !makePrivateFolder(m_path)) make();
        return m_path;
    }

private:
    void make()
    {
        m_path = newPrivateFolder(QDir::tempPath(), QStringLiteral("kestro-%1-").arg(getuid()));
        m_maker = getpid();
    }

    QString m_path;
    pid_t m_maker = 0;
};

} // namespace

QString homeFolder()
{
    for (const char* variable : {"KESTRO_HOME", "HOME"}) {
        const QString folder = fromEnvironment(variable);
        if (!folder.isEmpty()) return folder;
    }
    return homeOfAccount();
}

QString packagePrefix()
{
    static const QString prefix = QDir::cleanPath(QFileInfo(libraryFile()).path() + QStringLiteral("/../.."));
    return prefix;
}

QString kestroProgram()
{
    return packagePrefix() + QStringLiteral("/bin/kestro");
}

QString platformPath(const QString& path)
{
    const QString root = fromEnvironment("KESTRO_ROOT");
    if (!root.isEmpty()) return root + path;
    return QFileInfo::exists(path) ? path : packagePrefix() + QStringLiteral("/share/kestro/root") + path;
}

QString cacheFolder()
{
    const QString other = qEnvironmentVariable("XDG_CACHE_HOME");
    const bool isElsewhere = qEnvironmentVariable("KESTRO_HOME").isEmpty() && QDir::isAbsolutePath(other);
    return (isElsewhere ? QDir::cleanPath(other) : homeFolder() + QStringLiteral("/.cache")) +
           QStringLiteral("/kestro");
}

QString temporaryFolder()
{
    const QString session = sessionTemporaryFolder();
    if (!session.isEmpty()) return session;
    static ProcessTemporaryFolder folder;
    return folder.path();
}

} // namespace kestro
