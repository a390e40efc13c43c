#include "platform/web/SharedBytes.h"

#include "platform/base/Bounds.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace kestro {

namespace {

constexpr int seals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE | F_SEAL_SEAL;

bool writeAll(int file, const QByteArray& bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = write(file, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (count <= 0) return false;
        done += count;
    }
    return true;
}

} // namespace

Descriptor sharedBytes(const QByteArray& bytes)
{
    if (bytes.size() > Bounds::webRequestBytes) return {};
    Descriptor memory(memfd_create("kestro-web", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!memory.isOpen() || !writeAll(memory.number(), bytes) ||
        fcntl(memory.number(), F_ADD_SEALS, seals) != 0)
        return {};
    return memory;
}

std::optional<QByteArray> bytesOf(const Descriptor& memory, qint64 length)
{
    struct stat found = {};
    if (!memory.isOpen() || length < 0 || length > Bounds::webRequestBytes ||
        fstat(memory.number(), &found) != 0 || found.st_size != length)
        return {};
    const int has = fcntl(memory.number(), F_GET_SEALS);
    if (has < 0 || (has & seals) != seals) return {};
    QByteArray bytes(length, Qt::Uninitialized);
    if (pread(memory.number(), bytes.data(), static_cast<size_t>(length), 0) != length) return {};
    return bytes;
}

} // namespace kestro
