#include "platform/plist/PropertyListFile.h"

#include "platform/base/Bounds.h"
#include "platform/base/FileReplacement.h"
#include "platform/base/RegularFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

constexpr std::time_t ageOfOldBeginnings = 3600; // seconds: nobody of an earlier release writes that long

/// Whether the file is a beginning of what an earlier release wrote. What is whole, or anything else, may be
/// a person's own copy.
bool isTorn(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    constexpr QByteArrayView start("<?xml");
    if (!start.startsWith(file.read(start.size()))) return false;
    constexpr qint64 tail = 64;
    file.seek(std::max<qint64>(0, file.size() - tail));
    return !file.readAll().trimmed().endsWith("</plist>");
}

/// They ended in six random letters while they were written.
void removeBeginningsOfEarlierReleases(const QFileInfo& file)
{
    const QDir folder = file.dir();
    static const QRegularExpression sixLetters(QStringLiteral("^\\.[A-Za-z]{6}$"));
    for (const QString& entry : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        if (!entry.startsWith(file.fileName())) continue;
        struct stat found = {};
        const QString path = folder.filePath(entry);
        const bool isOurs = sixLetters.match(entry.sliced(file.fileName().size())).hasMatch() &&
                            lstat(QFile::encodeName(path).constData(), &found) == 0 &&
                            S_ISREG(found.st_mode) && found.st_uid == geteuid() && found.st_nlink == 1;
        if (isOurs && found.st_mtime < std::time(nullptr) - ageOfOldBeginnings && isTorn(path))
            QFile::remove(path);
    }
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
    auto bytes = readRegularFile(path, Bounds::propertyListBytes);
    if (!bytes) return {};
    return std::move(bytes.value());
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
    const QFileInfo target(pastLinks(path));
    if (target.filePath().isEmpty() || !QDir().mkpath(target.path())) return false;
    removeBeginningsOfEarlierReleases(target);
    return replaceFile(target.filePath(), bytes).isOk();
}

} // namespace kestro
