#include "trailers/PageUnpacker.h"

#include "trailers/ShellCommand.h"

#include <QFile>

#include <algorithm>
#include <csignal>
#include <utility>

namespace kestro {

namespace {

const QString packedName = QStringLiteral("/__tmp__.gz");
const QString unpackedName = QStringLiteral("/__tmp__");
const QString command = QStringLiteral("gzip -df %1");

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

Result<QByteArray> readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return Error{QStringLiteral("gzip left nothing")};
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) return Error{file.errorString()};
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

bool PageUnpacker::isPacked(const QByteArray& page)
{
    return page.startsWith(QByteArrayView("\x1f\x8b\x08\x00", 4));
}

Result<QByteArray> PageUnpacker::unpack(const QByteArray& page, const std::function<bool()>& isWanted) const
{
    const QString packed = m_folder + packedName;
    const QString unpacked = m_folder + unpackedName;
    if (!isPlainPath(packed)) return Error{QStringLiteral("no scratch folder with a plain name")};
    // What an earlier page left is not to be taken for this one.
    QFile::remove(unpacked);
    if (!writeFile(packed, page)) return Error{QStringLiteral("cannot write %1").arg(packed)};
    const auto status = runShellCommand(QFile::encodeName(command.arg(packed)), largestPage, isWanted);
    if (!status) return Error{status.error()};
    if (status.value() == exitTooLarge) return Error{QStringLiteral("unpacked it is too large")};
    if (status.value() != 0 && status.value() != exitWarning)
        return Error{QStringLiteral("gzip failed with %1").arg(status.value())};
    return readFile(unpacked);
}

} // namespace kestro
