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

std::optional<Error> SiteFolder::open()
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

std::optional<Error> SiteFolder::claim(const QStringList& files)
{
    for (const QString& file : files)
        if (auto error = obstacle(file)) return error;
    Manifest claimed = m_before;
    for (const QString& file : files)
        if (!claimed.hasFile(file)) claimed.setFile(file, {});
    if (!QDir().mkpath(m_path)) return Error{QStringLiteral("Cannot make the folder %1").arg(m_path)};
    for (auto file = claimed.files().begin(); file != claimed.files().end(); ++file)
        removeUnfinished(pathOf(file.key()));
    return save(claimed);
}

std::optional<Error> SiteFolder::obstacle(const QString& file) const
{
    const QString folder = folderOf(file);
    if (!folder.isEmpty() && exists(pathOf(folder)) && !isRealFolder(pathOf(folder)))
        return inTheWay(pathOf(folder));
    const QString path = pathOf(file);
    const bool isOurs = m_before.hasFile(file) && !isRealFolder(path);
    return exists(path) && !isOurs ? std::optional(inTheWay(path)) : std::nullopt;
}

std::optional<Error> SiteFolder::write(const QString& file, const QByteArray& content, const QString& origin)
{
    makeFolderOf(file);
    return note(file, origin, placeContent(pathOf(file), content));
}

std::optional<Error> SiteFolder::place(const QString& file, const QString& source, MovieTransfer transfer)
{
    makeFolderOf(file);
    return note(file, {}, placeMovie(pathOf(file), source, transfer));
}

std::optional<Error> SiteFolder::nameAgain(const QString& file, const QString& name)
{
    return note(name, {}, placeSecondName(pathOf(name), pathOf(file)));
}

// Where that fails, so does making the file, which says why.
void SiteFolder::makeFolderOf(const QString& file) const
{
    const QString folder = folderOf(file);
    if (!folder.isEmpty()) QDir(m_path).mkpath(folder);
}

std::optional<Error> SiteFolder::note(const QString& file, const QString& origin,
                                      const Result<Placed>& placed)
{
    if (!placed) return Error{placed.error()};
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

std::optional<Error> SiteFolder::finish(const std::vector<SourceMovie>& movies)
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

std::optional<Error> SiteFolder::save(const Manifest& manifest) const
{
    const QString path = pathOf(manifestName);
    const auto placed = placeContent(path, manifest.json());
    if (!placed) return Error{placed.error()};
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return {};
}

} // namespace kestro
