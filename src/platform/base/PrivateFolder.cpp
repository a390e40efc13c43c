#include "platform/base/PrivateFolder.h"

#include <QFile>

#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestro {

namespace {

constexpr mode_t ownerOnly = S_IRWXU;
constexpr mode_t writableByOthers = S_IWGRP | S_IWOTH;

// Checks and narrows through one descriptor: between two looks at a name, somebody could put another folder
// there.
bool isOursAndClosed(const Descriptor& folder)
{
    struct stat found = {};
    if (fstat(folder.number(), &found) != 0 || found.st_uid != geteuid()) return false;
    return (found.st_mode & ALLPERMS) == ownerOnly || fchmod(folder.number(), ownerOnly) == 0;
}

} // namespace

bool makePrivateFolder(const QString& path)
{
    mkdir(QFile::encodeName(path).constData(), ownerOnly);
    const Descriptor folder = openFolder(path);
    return folder.isOpen() && isOursAndClosed(folder);
}

Descriptor openFolder(const QString& path)
{
    return Descriptor(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

bool isOwnFolder(const QString& path)
{
    struct stat found = {};
    return stat(QFile::encodeName(path).constData(), &found) == 0 && S_ISDIR(found.st_mode) &&
           found.st_uid == geteuid() && (found.st_mode & writableByOthers) == 0;
}

QString newPrivateFolder(const QString& parent, const QString& prefix)
{
    QByteArray name = QFile::encodeName(parent + u'/' + prefix) + "XXXXXX";
    return mkdtemp(name.data()) == nullptr ? QString() : QFile::decodeName(name);
}

} // namespace kestro
