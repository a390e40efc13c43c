#include "publish/SiteFolder.h"

#include <QDir>
#include <QFileInfo>

namespace kestro {

namespace {

/// Hidden, and readable by its owner alone: it names files of the folder of movies.
const QString manifestName = QStringLiteral(".kestro-site.json");

bool exists(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink(); // a link that leads nowhere is there as well
}

bool isRealFolder(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() && !info.isSymLink();
}

Error inTheWay(const QString& path)
{
    return Error{QStringLiteral("%1 is in the way, and is not of an earlier run: move it").arg(path)};
}

QString folderOf(const QString& file)
{
    return file.contains(u'/') ? file.section(u'/', 0, -2) : QString();
}

} // namespace

Result<void> SiteFolder::open()
{
    QFile file(pathOf(manifestName));
    if (!file.exists()) return {};
    const auto fault = [&](const QString& reason) {
        return Error{QStringLiteral("Cannot use %1: %2").arg(file.fileName(), reason)};
    };
    if (!file.open(QIODevice::ReadOnly)) return fault(file.errorString());
    auto manifest = Manifest::parse(file.readAll());
    if (!manifest) return fault(manifest.error());
    m_before = std::move(manifest.value());
    return {};
}

Result<void> SiteFolder::claim(const QStringList& files)
{
    for (const QString& file : files)
        if (auto done = obstacle(file); !done) return done;
    Manifest claimed = m_before;
    for (const QString& file : files)
        if (!claimed.hasFile(file)) claimed.setFile(file, {});
    if (!QDir().mkpath(m_path)) return Error{QStringLiteral("Cannot make the folder %1").arg(m_path)};
    for (auto file = claimed.files().begin(); file != claimed.files().end(); ++file)
        removeUnfinished(pathOf(file.key()));
    return save(claimed);
}

Result<void> SiteFolder::obstacle(const QString& file) const
{
    const QString folder = folderOf(file);
    if (!folder.isEmpty() && exists(pathOf(folder)) && !isRealFolder(pathOf(folder)))
        return inTheWay(pathOf(folder));
    const QString path = pathOf(file);
    const bool isOurs = m_before.hasFile(file) && !isRealFolder(path);
    if (exists(path) && !isOurs) return inTheWay(path);
    return {};
}

Result<void> SiteFolder::write(const QString& file, const QByteArray& content, const QString& origin)
{
    makeFolderOf(file);
    return note(file, origin, placeContent(pathOf(file), content));
}

Result<void> SiteFolder::place(const QString& file, const QString& source, MovieTransfer transfer)
{
    makeFolderOf(file);
    return note(file, {}, placeMovie(pathOf(file), source, transfer));
}

Result<void> SiteFolder::nameAgain(const QString& file, const QString& name)
{
    return note(name, {}, placeSecondName(pathOf(name), pathOf(file)));
}

// Where that fails, so does making the file, which says why.
void SiteFolder::makeFolderOf(const QString& file) const
{
    const QString folder = folderOf(file);
    if (!folder.isEmpty()) QDir(m_path).mkpath(folder);
}

Result<void> SiteFolder::note(const QString& file, const QString& origin, const Result<Placed>& placed)
{
    if (!placed) return placed.failure();
    if (placed.value() == Placed::Written) ++m_written;
    m_now.setFile(file, origin);
    return {};
}

bool SiteFolder::keep(const QString& file, const QString& origin)
{
    const bool isSame = m_before.files().value(file) == origin && QFileInfo(pathOf(file)).isFile();
    if (isSame) m_now.setFile(file, origin);
    return isSame;
}

Result<void> SiteFolder::finish(const std::vector<SourceMovie>& movies)
{
    for (auto file = m_before.files().begin(); file != m_before.files().end(); ++file)
        if (!m_now.hasFile(file.key())) remove(file.key());
    m_now.setMovies(movies);
    return save(m_now);
}

void SiteFolder::remove(const QString& file)
{
    const QString folder = folderOf(file);
    if (!folder.isEmpty() && !isRealFolder(pathOf(folder))) return;
    if (QFile::remove(pathOf(file))) ++m_removed;
    // Goes only where it is empty.
    if (!folder.isEmpty()) QDir(m_path).rmdir(folder);
}

Result<void> SiteFolder::save(const Manifest& manifest) const
{
    const QString path = pathOf(manifestName);
    const auto placed = placeContent(path, manifest.json());
    if (!placed) return placed.failure();
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return {};
}

} // namespace kestro
