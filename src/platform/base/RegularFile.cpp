#include "platform/base/RegularFile.h"

#include "platform/base/Descriptor.h"
#include "platform/base/Reasons.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace kestro {

namespace {

constexpr qint64 largestBlock = qint64(1024) * 1024;
constexpr qint64 pastEnd = 4096; // read where the file should end, for one that grows

/// Reads one block to the end of `bytes`; answers its size, 0 at the end of the file, -1 for an error.
ssize_t appendBlock(const Descriptor& file, QByteArray& bytes, qint64 size)
{
    const qsizetype before = bytes.size();
    const qint64 block = std::clamp<qint64>(size - before, pastEnd, largestBlock);
    bytes.resize(before + block);
    ssize_t count = -1;
    do
        count = read(file.number(), bytes.data() + before, static_cast<std::size_t>(block));
    while (count < 0 && errno == EINTR);
    const int reason = errno;
    bytes.resize(before + std::max<ssize_t>(count, 0));
    errno = reason;
    return count;
}

} // namespace

Result<QByteArray> readRegularFile(const QString& path, qint64 most, const std::function<bool()>& isWanted)
{
    // A pipe is opened without waiting for who writes into it, a terminal without becoming ours.
    const Descriptor file(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    struct stat found = {};
    if (!file.isOpen() || fstat(file.number(), &found) != 0) return Error{systemReason(errno)};
    if (!S_ISREG(found.st_mode)) return Error{QStringLiteral("no plain file")};
    if (found.st_size > most) return Error{tooLarge(most)};
    QByteArray bytes;
    bytes.reserve(found.st_size + pastEnd);
    ssize_t count = 0;
    do {
        count = appendBlock(file, bytes, found.st_size);
        if (count < 0) return Error{systemReason(errno)};
        if (bytes.size() > most) return Error{tooLarge(most)};
    } while (count > 0 && isWanted());
    return bytes;
}

} // namespace kestro
