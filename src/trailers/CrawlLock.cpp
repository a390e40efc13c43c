#include "trailers/CrawlLock.h"

#include "platform/base/Reasons.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <utility>

namespace kestro {

namespace {

QString lockPath(const QString& listPath)
{
    const QFileInfo list(listPath);
    return list.path() + u'/' + list.completeBaseName() + QStringLiteral(".lock");
}

Error cannotLock(const QString& path, int reason)
{
    return {QStringLiteral("Cannot lock %1: %2").arg(path, systemReason(reason))};
}

} // namespace

Result<CrawlLock> CrawlLock::take(const QString& listPath)
{
    const QString path = lockPath(listPath);
    QDir().mkpath(QFileInfo(path).path());
    Descriptor file(
        open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600));
    if (!file.isOpen()) return cannotLock(path, errno);
    if (flock(file.number(), LOCK_EX | LOCK_NB) == 0) return CrawlLock(std::move(file));
    if (errno == EWOULDBLOCK) return Error{QStringLiteral("Another crawl is running")};
    return cannotLock(path, errno);
}

} // namespace kestro
