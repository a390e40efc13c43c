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
    if (dladdr(reinterpret_cast<const void*>(&packageLibraries), &found) == 0 || found.dli_fname == nullptr)
        return {};
    return QFileInfo(QFile::decodeName(found.dli_fname)).canonicalFilePath();
}

QString fromLibraries(const char* path)
{
    return QDir::cleanPath(packageLibraries() + u'/' + QString::fromUtf8(path));
}

// A folder below the one that the session gives to each user, which is gone after the session.
QString sessionTemporaryFolder()
{
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!QDir::isAbsolutePath(session) || !isOwnFolder(session)) return {};
    const QString path = QDir::cleanPath(session) + QStringLiteral("/kestro");
    return makePrivateFolder(path) ? path : QString();
}

bool makeOwnFolder(const QString& path)
{
    if (!QFileInfo::exists(path) && !(QDir().mkpath(QFileInfo(path).path()) && makePrivateFolder(path)))
        return false;
    return isOwnFolder(path);
}

// A folder among the user's caches, for who runs without a session. Always the same one, so that a process
// that is killed leaves none behind.
QString cachedTemporaryFolder()
{
    const QString path = cacheFolder();
    const QString caches = QFileInfo(path).path();
    return makeOwnFolder(caches) && makePrivateFolder(path) ? path : QString();
}

} // namespace

QString homeFolder()
{
    for (const char* variable : {"KESTRO_HOME", "HOME"}) {
        const QString folder = fromEnvironment(variable);
        if (!folder.isEmpty()) return folder;
    }
    return homeOfAccount();
}

QString packageLibraries()
{
    static const QString folder = QFileInfo(libraryFile()).path();
    return folder;
}

QString packageData()
{
    return fromLibraries(KESTRO_DATA_FROM_LIBRARIES);
}

QString kestroProgram()
{
    return fromLibraries(KESTRO_PROGRAMS_FROM_LIBRARIES "/kestro");
}

QString platformPath(const QString& path)
{
    const QString root = fromEnvironment("KESTRO_ROOT");
    if (!root.isEmpty()) return root + path;
    return QFileInfo::exists(path) ? path : packageData() + QStringLiteral("/root") + path;
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
    return session.isEmpty() ? cachedTemporaryFolder() : session;
}

} // namespace kestro
