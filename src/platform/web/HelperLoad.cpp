#include "platform/web/HelperLoad.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The number that a line of /proc/<number>/status begins with.
qint64 numberIn(const QByteArray& status, const char* line)
{
    const qsizetype at = status.indexOf(line);
    if (at < 0) return 0;
    const qsizetype from = at + qsizetype(qstrlen(line));
    const QByteArray value = status.mid(from, status.indexOf('\n', from) - from).trimmed();
    return value.split(' ').first().toLongLong();
}

/// The same where it counts kibibytes.
qint64 bytesIn(const QByteArray& status, const char* line)
{
    return numberIn(status, line) * 1024;
}

/// Memory that is held open counts as shared though nobody may have mapped it.
class OpenMemory final {
public:
    void add(pid_t process)
    {
        const QString folder = QStringLiteral("/proc/%1/fd").arg(process);
        for (const QString& number : QDir(folder).entryList(QDir::Files | QDir::System))
            addFile(QFile::encodeName(folder + u'/' + number));
    }
    [[nodiscard]] qint64 bytes() const { return m_bytes; }

private:
    void addFile(const QByteArray& link)
    {
        std::array<char, 16> name{};
        const ssize_t length = readlink(link.constData(), name.data(), name.size());
        const std::string_view target(name.data(), length > 0 ? static_cast<size_t>(length) : 0);
        if (!target.starts_with("/memfd:") && !target.starts_with("/dev/shm/")) return;
        struct stat found = {};
        if (stat(link.constData(), &found) != 0 || !m_seen.insert({found.st_dev, found.st_ino}).second)
            return;
        constexpr qint64 block = 512;
        m_bytes += found.st_blocks * block;
    }

    std::set<std::pair<dev_t, ino_t>> m_seen;
    qint64 m_bytes = 0;
};

QList<pid_t> startedBy(pid_t process)
{
    QList<pid_t> found;
    const QString tasks = QStringLiteral("/proc/%1/task").arg(process);
    const QStringList threads = QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& thread : threads) {
        const auto numbers = contentsOf(tasks + u'/' + thread + QStringLiteral("/children")).split(' ');
        for (const QByteArray& number : numbers)
            if (number.toInt() > 0) found.append(number.toInt());
    }
    return found;
}

} // namespace

HelperLoad loadOf(pid_t process)
{
    HelperLoad load{0, 0, 0};
    OpenMemory open;
    qint64 mapped = 0;
    QList<pid_t> left{process};
    // A few more than there may be: who starts them without end is not counted without end.
    while (!left.isEmpty() && load.processes <= 2 * Bounds::webHelperProcesses &&
           load.threads <= 2 * Bounds::webHelperThreads) {
        const pid_t each = left.takeLast();
        const QByteArray status = contentsOf(QStringLiteral("/proc/%1/status").arg(each));
        if (status.isEmpty()) continue;
        ++load.processes;
        load.threads += int(numberIn(status, "Threads:"));
        load.bytes += bytesIn(status, "RssAnon:");
        mapped += bytesIn(status, "RssShmem:");
        open.add(each);
        left += startedBy(each);
    }
    load.bytes += std::max(mapped, open.bytes());
    return load;
}

} // namespace kestro
