#include "publish/FilePlacing.h"

#include "platform/base/FileReplacement.h"
#include "platform/movie/StreamableMovie.h"

#include <QFile>
#include <QFileInfo>

namespace fs = std::filesystem;

namespace kestro {

namespace {

/// Where `path` is made: hidden, beside it.
QString unfinishedPath(const QString& path)
{
    const QFileInfo file(path);
    return QStringLiteral("%1/.%2.part").arg(file.path(), file.fileName());
}

Error cannotWrite(const QString& path, const QString& reason)
{
    return Error{QStringLiteral("Cannot write %1: %2").arg(path, reason)};
}

Error cannotWrite(const QString& path, const std::error_code& code)
{
    return cannotWrite(path, QString::fromStdString(code.message()));
}

/// Gives what was made its name. Takes it away where that fails.
Result<Placed> putInPlace(const QString& path)
{
    std::error_code error;
    fs::rename(nativePath(unfinishedPath(path)), nativePath(path), error);
    if (!error) return Placed::Written;
    removeUnfinished(path);
    return cannotWrite(path, error);
}

bool holds(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (QFileInfo(path).isSymLink() || file.size() != content.size()) return false;
    return file.open(QIODevice::ReadOnly) && file.readAll() == content;
}

/// Whether `path` is `source` under another name, or leads to it.
bool isSameFile(const QString& path, const QString& source)
{
    std::error_code error;
    return fs::equivalent(nativePath(path), nativePath(source), error) && !error;
}

bool isCopy(const QString& path, const QString& source)
{
    const QFileInfo copy(path);
    const QFileInfo original(source);
    return copy.isFile() && !copy.isSymLink() && copy.size() == original.size() &&
           copy.lastModified() == original.lastModified();
}

bool isUpToDate(const QString& path, const QString& source, MovieTransfer transfer)
{
    const bool isSame = isSameFile(path, source);
    return transfer == MovieTransfer::Link ? isSame || isCopy(path, source) : !isSame && isCopy(path, source);
}

bool link(const fs::path& path, const fs::path& source)
{
    std::error_code error;
    fs::create_hard_link(source, path, error);
    if (!error) return true;
    fs::create_symlink(source, path, error);
    return !error;
}

/// By which a later run knows it.
std::error_code giveTimeOf(const fs::path& path, const fs::path& source)
{
    std::error_code error;
    const auto time = fs::last_write_time(source, error);
    if (!error) fs::last_write_time(path, time, error);
    return error;
}

std::error_code copyWithTime(const fs::path& path, const fs::path& source)
{
    std::error_code error;
    fs::copy_file(source, path, fs::copy_options::overwrite_existing, error);
    if (error) return error;
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, error);
    return giveTimeOf(path, source);
}

Result<Placed> placeCopy(const QString& path, const QString& source)
{
    if (const std::error_code error = copyWithTime(nativePath(unfinishedPath(path)), nativePath(source))) {
        removeUnfinished(path);
        return cannotWrite(path, error);
    }
    return putInPlace(path);
}

bool isStreamableCopy(const QString& path, const QString& source)
{
    const QFileInfo copy(path);
    return copy.isFile() && !copy.isSymLink() && copy.lastModified() == QFileInfo(source).lastModified() &&
           isStreamable(path);
}

/// A copy with the index first; none where it cannot be made of such a movie.
std::optional<Result<Placed>> placeStreamable(const QString& path, const QString& source)
{
    if (isStreamableCopy(path, source)) return Placed::Unchanged;
    removeUnfinished(path);
    const bool isMade = writeStreamable(source, unfinishedPath(path)) &&
                        !giveTimeOf(nativePath(unfinishedPath(path)), nativePath(source));
    if (isMade) return putInPlace(path);
    removeUnfinished(path);
    return {};
}

} // namespace

fs::path nativePath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

Result<Placed> placeContent(const QString& path, const QByteArray& content)
{
    if (holds(path, content)) return Placed::Unchanged;
    removeUnfinished(path);
    if (const auto made = makeFile(unfinishedPath(path), content); !made)
        return cannotWrite(path, made.error());
    return putInPlace(path);
}

Result<Placed> placeMovie(const QString& path, const QString& source, MovieTransfer transfer)
{
    if (!isStreamable(source))
        if (auto placed = placeStreamable(path, source)) return *placed;
    if (isUpToDate(path, source, transfer)) return Placed::Unchanged;
    removeUnfinished(path);
    const fs::path unfinished = nativePath(unfinishedPath(path));
    if (transfer == MovieTransfer::Link && link(unfinished, nativePath(source))) return putInPlace(path);
    return placeCopy(path, source);
}

// A copy is not left as it is before that was tried: it may be a name of a file elsewhere.
Result<Placed> placeSecondName(const QString& path, const QString& file)
{
    if (isSameFile(path, file)) return Placed::Unchanged;
    removeUnfinished(path);
    std::error_code error;
    fs::create_hard_link(nativePath(file), nativePath(unfinishedPath(path)), error);
    if (!error) return putInPlace(path);
    return isCopy(path, file) ? Placed::Unchanged : placeCopy(path, file);
}

void removeUnfinished(const QString& path)
{
    std::error_code ignored; // what is in the way shows when the file is made
    fs::remove(nativePath(unfinishedPath(path)), ignored);
}

} // namespace kestro
