#include "platform/web/SharedFrames.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace kestro {

namespace {

/// What the memory must have; the system may add some of its own.
constexpr int seals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL;

bool isSealed(int memory)
{
    const int has = fcntl(memory, F_GET_SEALS);
    return has >= 0 && (has & seals) == seals;
}

bool isInBounds(QSize size)
{
    return size.width() > 0 && size.height() > 0 && size.width() <= SharedFrames::longestSide &&
           size.height() <= SharedFrames::longestSide;
}

} // namespace

SharedFrames::SharedFrames(Descriptor descriptor, QSize size, uchar* memory)
    : m_descriptor(std::move(descriptor))
    , m_size(size)
    , m_memory(memory)
{
}

SharedFrames::~SharedFrames()
{
    munmap(m_memory, static_cast<size_t>(slotBytes(m_size) * slotCount));
}

qsizetype SharedFrames::slotBytes(QSize size)
{
    return qsizetype{size.width()} * size.height() * 4;
}

std::unique_ptr<SharedFrames> SharedFrames::make(QSize size)
{
    if (!isInBounds(size)) return nullptr;
    Descriptor memory(memfd_create("kestro-web", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!memory.isOpen() || ftruncate(memory.number(), slotBytes(size) * slotCount) != 0 ||
        fcntl(memory.number(), F_ADD_SEALS, seals) != 0)
        return nullptr;
    return map(std::move(memory), size, PROT_READ);
}

std::unique_ptr<SharedFrames> SharedFrames::adopt(Descriptor memory, QSize size)
{
    struct stat found = {};
    if (!isInBounds(size) || !memory.isOpen() || fstat(memory.number(), &found) != 0 ||
        found.st_size != slotBytes(size) * slotCount || !isSealed(memory.number()))
        return nullptr;
    return map(std::move(memory), size, PROT_READ | PROT_WRITE);
}

std::unique_ptr<SharedFrames> SharedFrames::map(Descriptor descriptor, QSize size, int access)
{
    void* const memory = mmap(nullptr, static_cast<size_t>(slotBytes(size) * slotCount), access, MAP_SHARED,
                              descriptor.number(), 0);
    if (memory == MAP_FAILED) return nullptr;
    return std::unique_ptr<SharedFrames>(
        new SharedFrames(std::move(descriptor), size, static_cast<uchar*>(memory)));
}

QImage SharedFrames::writable(int slot)
{
    return {m_memory + slotBytes(m_size) * slot, m_size.width(), m_size.height(), bytesPerLine(),
            QImage::Format_RGB32};
}

Descriptor SharedFrames::share() const
{
    return Descriptor(fcntl(m_descriptor.number(), F_DUPFD_CLOEXEC, 0));
}

} // namespace kestro
