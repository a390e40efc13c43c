#include "trailers/PageUnpacker.h"

#include "platform/base/Bounds.h"
#include "platform/base/Paths.h"
#include "platform/base/ScratchFolder.h"
#include "trailers/ShellCommand.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <csignal>
#include <utility>

namespace kestro {

namespace {

const QString packedName = QStringLiteral("/__tmp__.gz");
const QString unpackedName = QStringLiteral("/__tmp__");
const QString command = QStringLiteral("gzip -df %1");

constexpr qint64 block = 4LL * 1024 * 1024; // read at once

constexpr int exitTooLarge = 128 + SIGXFSZ;
constexpr int exitWarning = 2; // of gzip: something else follows what was unpacked

bool isPlain(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'/' ||
           c == u'.' || c == u'_' || c == u'-';
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size() &&
           file.flush();
}

// Once it is open its name is of no use, and it is gone however this process ends.
Result<QByteArray> takeFile(const QString& path, const std::function<bool()>& isWanted)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Error{QStringLiteral("gzip left nothing")};
    QFile::remove(path);
    QByteArray bytes(file.size(), Qt::Uninitialized);
    for (qint64 at = 0; at < bytes.size();) {
        if (!isWanted()) return Error{QStringLiteral("stopped while it was read")};
        const qint64 count = file.read(bytes.data() + at, std::min(block, bytes.size() - at));
        if (count <= 0) return Error{file.errorString()};
        at += count;
    }
    return bytes;
}

} // namespace

bool isPlainPath(const QString& path)
{
    return path.startsWith(u'/') && std::all_of(path.begin(), path.end(), isPlain);
}

PageUnpacker::PageUnpacker(QString folder)
    : m_folder(std::move(folder))
{
}

QString unpackingFolder()
{
    const QString cache = cacheFolder();
    return isPlainPath(cache) ? cache : QDir::tempPath();
}

void PageUnpacker::sweep() const
{
    ScratchFolder::sweep(m_folder);
}

bool PageUnpacker::isPacked(const QByteArray& page)
{
    return page.startsWith(QByteArrayView("\x1f\x8b\x08\x00", 4));
}

Result<QByteArray> PageUnpacker::unpack(const QByteArray& page, const std::function<bool()>& isWanted)
{
    const auto folder = isPlainPath(m_folder) ? ScratchFolder::make(m_folder) : nullptr;
    if (!folder) return Error{QStringLiteral("no folder for it with a plain name: \"%1\"").arg(m_folder)};
    const QString packed = folder->path() + packedName;
    const QString unpacked = folder->path() + unpackedName;
    if (!writeFile(packed, page)) return Error{QStringLiteral("cannot write %1").arg(packed)};
    const auto status =
        runShellCommand(QFile::encodeName(command.arg(packed)), Bounds::unpackedPageBytes, isWanted);
    if (!status) return status.failure();
    if (status.value() == exitTooLarge) {
        m_unpackedBytes += Bounds::unpackedPageBytes;
        return Error{QStringLiteral("unpacked it is too large")};
    }
    if (status.value() != 0 && status.value() != exitWarning)
        return Error{QStringLiteral("gzip failed with %1").arg(status.value())};
    auto bytes = takeFile(unpacked, isWanted);
    if (bytes) m_unpackedBytes += bytes.value().size();
    return bytes;
}

} // namespace kestro
