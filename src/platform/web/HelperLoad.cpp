#include "platform/web/HelperLoad.h"

#include <QDir>
#include <QFile>

namespace kestro {

namespace {

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The bytes that a line of /proc/<number>/status names in kibibytes.
qint64 bytesIn(const QByteArray& status, const char* line)
{
    const qsizetype at = status.indexOf(line);
    if (at < 0) return 0;
    const QByteArray value = status.mid(at + qsizetype(qstrlen(line)), 40).trimmed();
    return value.left(value.indexOf(' ')).toLongLong() * 1024;
}

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
    HelperLoad load{0, 0};
    QList<pid_t> left{process};
    // A few more than there may be: who starts them without end is not counted without end.
    while (!left.isEmpty() && load.processes <= 2 * Bounds::webHelperProcesses) {
        const pid_t each = left.takeLast();
        const QByteArray status = contentsOf(QStringLiteral("/proc/%1/status").arg(each));
        if (status.isEmpty()) continue;
        ++load.processes;
        load.bytes += bytesIn(status, "RssAnon:") + bytesIn(status, "RssShmem:");
        left += startedBy(each);
    }
    return load;
}

} // namespace kestro
