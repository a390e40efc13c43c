#include "platform/web/ProfileFolder.h"

#include "platform/base/PrivateFolder.h"
#include "platform/base/ProcessMark.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace kestro {

namespace {

const QString prefix = QStringLiteral("web-");

/// web-NUMBER-BEGIN-LETTERS: the mark of the process that made it, and random letters.
const QString form = QStringLiteral("web-(\\d+)-(\\d+)-[A-Za-z0-9]{6}");

QString newPrefix()
{
    return prefix + markOfThisProcess().replace(u' ', u'-') + u'-';
}

/// A new folder is nobody's for a moment, but the name says who is about to claim it.
bool isMakerRunning(const QString& name)
{
    const auto match = QRegularExpression(QRegularExpression::anchoredPattern(form)).match(name);
    return match.hasMatch() && isRunning(match.captured(1) + u' ' + match.captured(2));
}

void sweep(const QString& parent)
{
    const auto names = QDir(parent).entryList({prefix + u'*'}, QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        const QString path = parent + u'/' + name;
        if (isMakerRunning(name)) continue;
        const Descriptor claimed = ProfileFolder::claim(path, true);
        if (claimed.isOpen()) ProfileFolder::remove(path);
    }
}

bool isPrivateFolderOfOurs(const QString& path)
{
    struct stat found = {};
    return lstat(QFile::encodeName(path).constData(), &found) == 0 && S_ISDIR(found.st_mode) &&
           found.st_uid == geteuid() && (found.st_mode & ALLPERMS) == S_IRWXU;
}

} // namespace

ProfileFolder::ProfileFolder(QString path, Descriptor claimed)
    : m_path(std::move(path))
    , m_claim(std::move(claimed))
{
}

ProfileFolder::~ProfileFolder()
{
    remove(m_path);
}

std::unique_ptr<ProfileFolder> ProfileFolder::make(const QString& parent)
{
    if (parent.isEmpty()) return nullptr;
    sweep(parent);
    const QString path = newPrivateFolder(parent, newPrefix());
    if (path.isEmpty()) return nullptr;
    return std::unique_ptr<ProfileFolder>(new ProfileFolder(path, claim(path, false)));
}

Descriptor ProfileFolder::claim(const QString& path, bool isAlone)
{
    Descriptor folder = openFolder(path);
    if (folder.isOpen() && flock(folder.number(), (isAlone ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0)
        return folder;
    return {};
}

bool ProfileFolder::isOne(const QString& path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    if (slash <= 0 || QDir::cleanPath(path) != path) return false;
    const QRegularExpression name(QRegularExpression::anchoredPattern(form));
    return name.match(path.sliced(slash + 1)).hasMatch() && isPrivateFolderOfOurs(path) &&
           isPrivateFolderOfOurs(path.first(slash));
}

pid_t ProfileFolder::makerOf(const QString& path)
{
    const QRegularExpression name(QRegularExpression::anchoredPattern(form));
    return name.match(path.sliced(path.lastIndexOf(u'/') + 1)).captured(1).toInt();
}

bool ProfileFolder::remove(const QString& path)
{
    return !isOne(path) || QDir(path).removeRecursively();
}

} // namespace kestro
