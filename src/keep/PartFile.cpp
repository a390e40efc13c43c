#include "keep/PartFile.h"

#include "platform/base/Reasons.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace kestro {

PartFile::PartFile(MovieStore& store, QUrl movie, QList<QUrl> wanted)
    : m_store(store)
    , m_movie(std::move(movie))
    , m_wanted(std::move(wanted))
{
}

PartFile::~PartFile()
{
    if (m_length > 0) QFile::remove(m_store.partFile(m_movie));
}

bool PartFile::begin(qint64 length)
{
    m_isEndless = length < 0;
    if (length <= 0) return false;
    if (const auto made = m_store.makeRoom(length, m_wanted); !made) {
        m_fault = made.failure();
        return false;
    }
    m_length = length;
    m_file = Descriptor(open(QFile::encodeName(m_store.partFile(m_movie)).constData(),
                             O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600));
    return m_file.isOpen() || failedOnDisk();
}

bool PartFile::take(QByteArrayView bytes)
{
    m_bytes += bytes.size();
    if (m_bytes > m_length) return false;
    while (!bytes.isEmpty()) {
        const ssize_t written = write(m_file.number(), bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return failedOnDisk();
        bytes = bytes.sliced(written);
    }
    return true;
}

bool PartFile::finish()
{
    if (!m_file.isOpen() || m_bytes != m_length) return false;
    if (fsync(m_file.number()) != 0 || !m_file.close()) return failedOnDisk();
    return true;
}

bool PartFile::failedOnDisk()
{
    m_fault = StoreFault{StoreFault::Kind::Disk, systemReason(errno)};
    return false;
}

} // namespace kestro
