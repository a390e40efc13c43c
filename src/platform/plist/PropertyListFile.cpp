#include "platform/plist/PropertyListFile.h"

#include "platform/base/Bounds.h"
#include "platform/plist/FileReplacement.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestro {

namespace {

bool isRegularAndNotTooLarge(int file)
{
    struct stat found = {};
    return fstat(file, &found) == 0 && S_ISREG(found.st_mode) && found.st_size <= Bounds::propertyListBytes;
}

// As many as the kernel follows.
constexpr int mostLinks = 40;

// The file that the links at `path` lead to, whether it exists or not; empty when they lead in a circle.
QString pastLinks(QString path)
{
    for (int followed = 0; followed <= mostLinks; ++followed) {
        const QFileInfo file(path);
        if (!file.isSymLink()) return path;
        path = file.symLinkTarget();
    }
    return {};
}

bool isReplaceable(const QString& path)
{
    const QFileInfo file(path);
    return !path.isEmpty() && (!file.exists() || file.isFile());
}

constexpr int mostCopies = 1000;

// "a.plist" is kept as "a~.plist", "a~1.plist" and so on.
QString nameOfCopy(const QString& path, int number)
{
    const QFileInfo file(path);
    const QString mark = number == 0 ? QStringLiteral("~") : QStringLiteral("~%1").arg(number);
    return file.path() + u'/' + file.completeBaseName() + mark + u'.' + file.suffix();
}

/// False, with the reason in errno, where there is a file of the new name. Some file systems cannot promise
/// that, but a second name for a file is never given over another.
bool moveToNewName(const QByteArray& from, const QByteArray& to)
{
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return true;
    const bool cannot = errno == EINVAL || errno == ENOSYS;
    return cannot && link(from.constData(), to.constData()) == 0 && unlink(from.constData()) == 0;
}

} // namespace

std::optional<QByteArray> readPropertyListFile(const QString& path)
{
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) return {};
    if (!isRegularAndNotTooLarge(descriptor)) {
        close(descriptor);
        return {};
    }
    QFile file;
    if (!file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        close(descriptor);
        return {};
    }
    QByteArray bytes = file.read(file.size());
    if (file.error() != QFileDevice::NoError) return {};
    return bytes;
}

bool isPropertyListFileThere(const QString& path)
{
    const QString target = pastLinks(path);
    return !target.isEmpty() && QFileInfo::exists(target);
}

std::optional<QString> setAsidePropertyListFile(const QString& path)
{
    const QString target = pastLinks(path);
    for (int number = 0; !target.isEmpty() && number < mostCopies; ++number) {
        const QString copy = nameOfCopy(target, number);
        if (moveToNewName(QFile::encodeName(target), QFile::encodeName(copy))) return copy;
        if (errno != EEXIST) return {};
    }
    return {};
}

bool replacePropertyListFile(const QString& path, const QByteArray& bytes)
{
    const QString target = pastLinks(path);
    if (!isReplaceable(target) || !QDir().mkpath(QFileInfo(target).path())) return false;
    return replaceFile(target, bytes);
}

} // namespace kestro
