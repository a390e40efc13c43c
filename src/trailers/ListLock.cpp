#include "trailers/ListLock.h"

#include "platform/base/Reasons.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <system_error>
#include <utility>

namespace kestro {

namespace {

constexpr int mostPauses = 200;

QString besides(const QString& listPath, const char* extension)
{
    const QFileInfo list(listPath);
    return list.path() + u'/' + list.completeBaseName() + QLatin1String(extension);
}

LockFault cannotBeMade(const char* what, const QString& path, int reason)
{
    return {LockFault::Kind::CannotBeMade,
            QStringLiteral("Cannot make the %1 %2: %3").arg(QLatin1String(what), path, systemReason(reason))};
}

/// 0, or why there is no such folder, as errno has it.
int makeFolder(const QString& path)
{
    std::error_code fault;
    std::filesystem::create_directories(QFile::encodeName(path).toStdString(), fault);
    return fault.value();
}

// False where somebody else has it, or where it cannot be had, as errno says.
bool isLocked(const Descriptor& file)
{
    return flock(file.number(), LOCK_EX | LOCK_NB) == 0;
}

} // namespace

ListLock::Taken ListLock::takeToCrawl(const QString& listPath)
{
    const QString path = besides(listPath, ".lock");
    auto file = fileAt(path);
    if (!file) return file.failure();
    if (isLocked(file.value())) return ListLock(std::move(file.value()));
    if (errno != EWOULDBLOCK) return cannotBeMade("lock", path, errno);
    return LockFault{LockFault::Kind::Taken, QStringLiteral("Another crawl is running")};
}

ListLock::Taken ListLock::takeToSave(const QString& listPath, const Pause& pause)
{
    const QString path = besides(listPath, ".saving");
    auto file = fileAt(path);
    if (!file) return file.failure();
    for (int pauses = 0; !isLocked(file.value()); ++pauses) {
        if (errno != EWOULDBLOCK) return cannotBeMade("lock", path, errno);
        if (pauses == mostPauses)
            return LockFault{LockFault::Kind::Taken,
                             QStringLiteral("Another process does not end saving %1").arg(listPath)};
        pause();
    }
    return ListLock(std::move(file.value()));
}

void ListLock::shortPause()
{
    QThread::msleep(10);
}

Result<Descriptor, LockFault> ListLock::fileAt(const QString& path)
{
    const QString folder = QFileInfo(path).path();
    if (const int reason = makeFolder(folder); reason != 0) return cannotBeMade("folder", folder, reason);
    Descriptor file(
        open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600));
    if (!file.isOpen()) return cannotBeMade("lock", path, errno);
    return file;
}

} // namespace kestro
