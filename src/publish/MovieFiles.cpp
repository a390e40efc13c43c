#include "publish/MovieFiles.h"

#include "publish/MovieKinds.h"

#include <QDir>
#include <QSet>

namespace kestro {

namespace {

/// One walk through the folders.
class MovieWalk final {
public:
    /// `excluded` is a canonical path.
    explicit MovieWalk(const QString& excluded) { m_entered.insert(excluded); }

    void enter(const QDir& folder, const QString& prefix)
    {
        const QString path = folder.canonicalPath();
        if (path.isEmpty() || m_entered.contains(path)) return;
        m_entered.insert(path);
        const auto entries =
            folder.entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QFileInfo& entry : entries) {
            if (entry.isDir())
                enter(QDir(entry.filePath()), prefix + entry.fileName() + u'/');
            else if (isMovieName(entry.fileName()))
                m_movies += prefix + entry.fileName();
        }
    }

    [[nodiscard]] QStringList movies()
    {
        m_movies.sort();
        return std::move(m_movies);
    }

private:
    QSet<QString> m_entered; ///< canonical paths; a link back up leads to one of them
    QStringList m_movies;
};

} // namespace

Result<QStringList> movieFilesBelow(const QString& folder, const QString& excluded)
{
    const QFileInfo info(folder);
    if (!info.exists()) return Error{QStringLiteral("%1 does not exist").arg(folder)};
    if (!info.isDir()) return Error{QStringLiteral("%1 is not a folder").arg(folder)};
    if (!info.isReadable() || !info.isExecutable())
        return Error{QStringLiteral("%1 cannot be read").arg(folder)};
    MovieWalk walk(QFileInfo(excluded).canonicalFilePath());
    walk.enter(QDir(folder), {});
    return walk.movies();
}

} // namespace kestro
