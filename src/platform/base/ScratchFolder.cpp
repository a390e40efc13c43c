#include "platform/base/ScratchFolder.h"

#include "platform/base/PrivateFolder.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

const QString prefix = QStringLiteral("kestro-scratch-");
constexpr int none = -1;
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
int claim(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const int folder = open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0) return none;
    struct stat opened = {};
    struct stat named = {};
    const bool isClaimed = flock(folder, LOCK_EX | LOCK_NB) == 0 && fstat(folder, &opened) == 0 &&
                           isOurs(opened) && lstat(name.constData(), &named) == 0 && isSame(opened, named);
    if (isClaimed) return folder;
    close(folder);
    return none;
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
        if (const int folder = claim(path); folder != none)
            return std::unique_ptr<ScratchFolder>(new ScratchFolder(path, folder));
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
        const int folder = claim(path);
        if (folder == none) continue;
        QDir(path).removeRecursively();
        close(folder);
    }
}

ScratchFolder::ScratchFolder(QString path, int claim)
    : m_path(std::move(path))
    , m_claim(claim)
{
}

ScratchFolder::~ScratchFolder()
{
    QDir(m_path).removeRecursively();
    close(m_claim);
}

} // namespace kestro
