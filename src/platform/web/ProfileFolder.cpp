#include "platform/web/ProfileFolder.h"

#include "platform/base/PrivateFolder.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <utility>

namespace kestro {

namespace {

const QString prefix = QStringLiteral("web-");

void sweep(const QString& parent)
{
    const auto names = QDir(parent).entryList({prefix + u'*'}, QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        const QString path = parent + u'/' + name;
        if (ProfileFolder::claim(path, true).isOpen()) QDir(path).removeRecursively();
    }
}

} // namespace

ProfileFolder::ProfileFolder(QString path, Descriptor claimed)
    : m_path(std::move(path))
    , m_claim(std::move(claimed))
{
}

ProfileFolder::~ProfileFolder()
{
    QDir(m_path).removeRecursively();
}

std::unique_ptr<ProfileFolder> ProfileFolder::make(const QString& parent)
{
    if (parent.isEmpty()) return nullptr;
    sweep(parent);
    const QString path = newPrivateFolder(parent, prefix);
    if (path.isEmpty()) return nullptr;
    return std::unique_ptr<ProfileFolder>(new ProfileFolder(path, claim(path, false)));
}

Descriptor ProfileFolder::claim(const QString& path, bool isAlone)
{
    Descriptor folder(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (folder.isOpen() && flock(folder.number(), (isAlone ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0)
        return folder;
    return {};
}

} // namespace kestro
