#include "trailers/CrawlLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

constexpr int noFile = -1;

QString lockPath(const QString& listPath)
{
    const QFileInfo list(listPath);
    return list.path() + u'/' + list.completeBaseName() + QStringLiteral(".lock");
}

Error cannotLock(const QString& path, int reason)
{
    return {QStringLiteral("Cannot lock %1: %2").arg(path, QString::fromLocal8Bit(std::strerror(reason)))};
}

} // namespace

Result<CrawlLock> CrawlLock::take(const QString& listPath)
{
    const QString path = lockPath(listPath);
    QDir().mkpath(QFileInfo(path).path());
    const int file =
        open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600);
    if (file < 0) return cannotLock(path, errno);
    CrawlLock lock(file);
    if (flock(file, LOCK_EX | LOCK_NB) == 0) return lock;
    if (errno == EWOULDBLOCK) return Error{QStringLiteral("Another crawl is running")};
    return cannotLock(path, errno);
}

CrawlLock::~CrawlLock()
{
    if (m_file != noFile) close(m_file);
}

CrawlLock::CrawlLock(CrawlLock&& other) noexcept
    : m_file(std::exchange(other.m_file, noFile))
{
}

CrawlLock& CrawlLock::operator=(CrawlLock&& other) noexcept
{
    std::swap(m_file, other.m_file);
    return *this;
}

} // namespace kestro
