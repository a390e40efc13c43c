#include "platform/base/FileReplacement.h"

#include "platform/base/Descriptor.h"
#include "platform/base/Reasons.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QThread>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestro {

namespace {

// What files end with while they are written, and six digits.
const QString beginning = QStringLiteral(".kestro-new-");
constexpr int digits = 6;
constexpr quint32 endOfNumbers = 1'000'000;
constexpr int mostTries = 100;
constexpr mode_t modeBits = 07777;
constexpr mode_t modeOfNew = 0666; // less the process's mask
constexpr int mostLinks = 40;      // as many as the kernel follows

bool isLeftBehind(const QString& path, const QString& ending)
{
    struct stat found = {};
    if (lstat(QFile::encodeName(path).constData(), &found) != 0) return false;
    if (!S_ISREG(found.st_mode) || found.st_uid != geteuid() || found.st_nlink != 1) return false;
    return ending.size() == beginning.size() + digits && ending.startsWith(beginning);
}

void removeLeftBehind(const QFileInfo& file)
{
    const QDir folder = file.dir();
    const QString name = file.fileName();
    for (const QString& entry : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        if (!entry.startsWith(name) || !isLeftBehind(folder.filePath(entry), entry.sliced(name.size())))
            continue;
        QFile::remove(folder.filePath(entry));
    }
}

/// Everybody who writes in a folder holds a share of its lock, which ends with its process; whoever has it
/// alone knows that what was begun there was given up.
void enterFolder(const Descriptor& folder, const QFileInfo& file)
{
    if (!folder.isOpen()) return;
    if (flock(folder.number(), LOCK_EX | LOCK_NB) == 0) removeLeftBehind(file);
    // Whoever has it alone is about to let go; a stranger who is not must not hold a saver up.
    for (int tries = 0; tries < mostTries && flock(folder.number(), LOCK_SH | LOCK_NB) != 0; ++tries)
        QThread::msleep(1);
}

bool writeAll(int file, const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t more =
            write(file, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        if (more < 0 && errno == EINTR) continue;
        if (more <= 0) return false;
        written += more;
    }
    return true;
}

std::optional<mode_t> modeOf(const QByteArray& path)
{
    struct stat found = {};
    if (stat(path.constData(), &found) != 0) return {};
    return found.st_mode & modeBits;
}

/// Answers 0, or why it could not, as errno has it; then nothing is left of it.
int makeFile(const QByteArray& path, const QByteArray& bytes, std::optional<mode_t> mode)
{
    Descriptor file(open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, modeOfNew));
    if (!file.isOpen()) return errno;
    const bool isMade = (!mode || fchmod(file.number(), *mode) == 0) && writeAll(file.number(), bytes) &&
                        fsync(file.number()) == 0 && file.close();
    if (isMade) return 0;
    const int reason = errno;
    unlink(path.constData());
    return reason;
}

QByteArray newName(const QString& path)
{
    const quint32 number = QRandomGenerator::global()->bounded(endOfNumbers);
    return QFile::encodeName(path + beginning + QStringLiteral("%1").arg(number, digits, 10, QChar(u'0')));
}

/// The same, with a file there that it takes the place of.
int replace(const QString& path, const QByteArray& bytes)
{
    const QByteArray target = QFile::encodeName(path);
    QByteArray begun;
    int reason = EEXIST;
    for (int tries = 0; reason == EEXIST && tries < mostTries; ++tries) {
        begun = newName(path);
        reason = makeFile(begun, bytes, modeOf(target));
    }
    if (reason != 0) return reason;
    if (std::rename(begun.constData(), target.constData()) == 0) return 0;
    reason = errno;
    unlink(begun.constData());
    return reason;
}

} // namespace

QString pastLinks(QString path)
{
    for (int followed = 0; followed <= mostLinks; ++followed) {
        const QFileInfo file(path);
        if (!file.isSymLink()) return path;
        path = file.symLinkTarget();
    }
    return {};
}

Result<void> replaceFile(const QString& path, const QByteArray& bytes)
{
    const QString target = pastLinks(path);
    if (target.isEmpty()) return Error{systemReason(ELOOP)};
    const QFileInfo place(target);
    if (place.exists() && !place.isFile()) return Error{QStringLiteral("no plain file")};
    const Descriptor folder(
        open(QFile::encodeName(place.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    enterFolder(folder, place);
    if (const int reason = replace(target, bytes); reason != 0) return Error{systemReason(reason)};
    if (folder.isOpen()) fsync(folder.number());
    return {};
}

Result<void> replaceWritableFile(const QString& path, const QByteArray& bytes)
{
    const QFileInfo file(path);
    if (file.exists() && !file.isWritable()) return Error{systemReason(EACCES)};
    return replaceFile(path, bytes);
}

Result<void> makeFile(const QString& path, const QByteArray& bytes)
{
    const int reason = makeFile(QFile::encodeName(path), bytes, {});
    if (reason != 0) return Error{systemReason(reason)};
    return {};
}

} // namespace kestro
