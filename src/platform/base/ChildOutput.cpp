#include "platform/base/ChildOutput.h"

#include <algorithm>
#include <sys/mman.h>
#include <unistd.h>

namespace kestro {

ChildOutput::ChildOutput()
    : m_memory(memfd_create("kestro-said", MFD_CLOEXEC))
{
}

QByteArray ChildOutput::first(qsizetype most) const
{
    return read(most, 0);
}

QByteArray ChildOutput::last(qsizetype most) const
{
    return read(most, std::max<qsizetype>(0, size() - most));
}

qsizetype ChildOutput::size() const
{
    return std::max<off_t>(0, lseek(m_memory.number(), 0, SEEK_END));
}

QByteArray ChildOutput::read(qsizetype most, qsizetype from) const
{
    QByteArray bytes(most, Qt::Uninitialized);
    const ssize_t count = pread(m_memory.number(), bytes.data(), std::size_t(most), from);
    bytes.truncate(std::max<ssize_t>(0, count));
    return bytes;
}

} // namespace kestro
