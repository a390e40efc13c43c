#include "platform/plist/PropertyListFile.h"

#include "platform/base/Bounds.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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

bool replacePropertyListFile(const QString& path, const QByteArray& bytes)
{
    const QString target = pastLinks(path);
    if (!isReplaceable(target) || !QDir().mkpath(QFileInfo(target).path())) return false;
    QSaveFile file(target);
    // flush() because commit() does not notice when the last, still buffered bytes find no room.
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           file.commit();
}

} // namespace kestro
