#include "platform/base/ScratchFolder.h"

#include "platform/base/PrivateFolder.h"

#include <QDir>
#include <QFile>

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

const QString prefix = QStringLiteral("kestro-scratch-");
constexpr int mostTries = 8;

bool isOurs(const struct stat& folder)
{
    return folder.st_uid == geteuid() && (folder.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

bool isSame(const struct stat& one, const struct stat& other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Locks the folder `path`, which must be ours; answers the open file, or none where somebody uses it. The
/// lock is of no use on a folder that a sweep has just taken away.
Descriptor claim(const QString& path)
{
    Descriptor folder = openFolder(path);
    struct stat opened = {};
    struct stat named = {};
    const bool isClaimed = folder.isOpen() && flock(folder.number(), LOCK_EX | LOCK_NB) == 0 &&
                           fstat(folder.number(), &opened) == 0 && isOurs(opened) &&
                           lstat(QFile::encodeName(path).constData(), &named) == 0 && isSame(opened, named);
    return isClaimed ? std::move(folder) : Descriptor();
}

} // namespace

std::unique_ptr<ScratchFolder> ScratchFolder::make(const QString& parent)
{
    if (!QDir::isAbsolutePath(parent) || !QDir().mkpath(parent)) return nullptr;
    sweep(parent);
    // A sweep of another process may come between the making and the lock.
    for (int tries = 0; tries < mostTries; ++tries) {
        const QString path = newPrivateFolder(parent, prefix);
        if (path.isEmpty()) return nullptr;
        if (Descriptor folder = claim(path); folder.isOpen())
            return std::unique_ptr<ScratchFolder>(new ScratchFolder(path, std::move(folder)));
    }
    return nullptr;
}

void ScratchFolder::sweep(const QString& parent)
{
    if (!QDir::isAbsolutePath(parent)) return;
    const auto names =
        QDir(parent).entryList({prefix + u'*'}, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        const QString path = parent + u'/' + name;
        if (const Descriptor folder = claim(path); folder.isOpen()) QDir(path).removeRecursively();
    }
}

ScratchFolder::ScratchFolder(QString path, Descriptor claim)
    : m_path(std::move(path))
    , m_claim(std::move(claim))
{
}

ScratchFolder::~ScratchFolder()
{
    QDir(m_path).removeRecursively();
}

} // namespace kestro
