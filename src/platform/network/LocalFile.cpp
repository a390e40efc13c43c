#include "platform/network/LocalFile.h"

#include "platform/base/FileURL.h"
#include "platform/network/FetchError.h"

#include <QFile>
#include <QUrl>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestro {

namespace {

constexpr qint64 blockSize = qint64(1024) * 1024;

/// An open file's number, closed at the end.
class Descriptor final {
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0) close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int number() const { return m_number; }

private:
    int m_number;
};

Error systemError(int number)
{
    return Error{QString::fromLocal8Bit(std::strerror(number))};
}

/// Reads one block to the end of `bytes`; answers its size, 0 at the end of the file, -1 for an error.
ssize_t appendBlock(int file, QByteArray& bytes)
{
    const qsizetype before = bytes.size();
    bytes.resize(before + blockSize);
    ssize_t count = -1;
    do
        count = ::read(file, bytes.data() + before, blockSize);
    while (count < 0 && errno == EINTR);
    const int error = errno;
    bytes.resize(before + std::max<ssize_t>(count, 0));
    errno = error;
    return count;
}

Result<QByteArray> readAll(int file, qint64 limit, const Cancellation::Watch& watch)
{
    QByteArray bytes;
    ssize_t count = 0;
    do {
        count = appendBlock(file, bytes);
        if (count < 0) return systemError(errno);
        if (bytes.size() > limit) return tooLarge(limit);
    } while (count > 0 && !watch.isCancelled());
    return bytes;
}

} // namespace

Result<QByteArray> readLocalFile(const QUrl& url, qint64 limit, const Cancellation::Watch& watch)
{
    const auto path = localPath(url);
    if (!path) return Error{QStringLiteral("a file of another machine")};
    if (path->contains(QChar::Null)) return Error{QStringLiteral("no valid URL")};
    // A pipe is opened without waiting for who writes into it, a terminal without becoming ours.
    const Descriptor file(
        open(QFile::encodeName(*path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (file.number() < 0) return systemError(errno);
    struct stat status = {};
    if (fstat(file.number(), &status) != 0) return systemError(errno);
    if (!S_ISREG(status.st_mode)) return Error{QStringLiteral("no plain file")};
    if (status.st_size > limit) return tooLarge(limit);
    return readAll(file.number(), limit, watch);
}

} // namespace kestro
