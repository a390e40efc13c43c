#include "publish/Publisher.h"

#include "publish/MovieFiles.h"
#include "publish/PageTemplate.h"
#include "publish/SitePages.h"
#include "publish/TitleGroups.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <array>

namespace kestro {

namespace {

const QString siteName = QStringLiteral("trailers");
const QString indexName = QStringLiteral("index.html");
const QString feedName = QStringLiteral("feed.json");

const std::array carriedNames = {QStringLiteral("site.css"), QStringLiteral("player.js"),
                                 QStringLiteral("gallery.js"), QStringLiteral("icon.svg"),
                                 QStringLiteral("poster.svg")};

/// Whether the canonical path `inner` lies in `outer`, or is it.
bool isWithin(const QString& inner, const QString& outer)
{
    return inner == outer || inner.startsWith(outer.endsWith(u'/') ? outer : outer + u'/');
}

QString inFolder(const PublishedTitle& title, const QString& name)
{
    return title.slug + u'/' + name;
}

} // namespace

Publisher::Publisher(PublishOrder order, MovieReader& reader, PublishWatcher& watcher)
    : m_order(std::move(order))
    , m_reader(reader)
    , m_watcher(watcher)
    , m_folder(QDir::cleanPath(m_order.site) + u'/' + siteName)
{
}

Result<PublishReport> Publisher::publish()
{
    if (auto done = m_folder.open(); !done) return done.failure();
    if (auto done = readMovies(); !done) return done.failure();
    if (auto done = group(); !done) return done.failure();
    if (auto done = m_folder.claim(plannedFiles()); !done) return done.failure();
    if (auto done = writeAll(); !done) return done.failure();
    if (auto done = m_folder.finish(m_sources); !done) return done.failure();
    countUp();
    return std::move(m_report);
}

/// What lies in the site is not published again: where the site is kept among the movies all of it is passed
/// over, where the movies are kept in the site its own folder is.
Result<QStringList> Publisher::findMovies() const
{
    const QString movies = QFileInfo(m_order.movies).canonicalFilePath();
    const QString site = QFileInfo(m_order.site).canonicalFilePath();
    const bool isAmongMovies = !site.isEmpty() && site != movies && isWithin(site, movies);
    const QString own = m_order.site + u'/' + siteName;
    if (!movies.isEmpty() && isWithin(movies, QFileInfo(own).canonicalFilePath()) && QFileInfo::exists(own))
        return Error{QStringLiteral("%1 is a part of the site: give the folder of the movies themselves")
                         .arg(m_order.movies)};
    return movieFilesBelow(m_order.movies, isAmongMovies ? site : own);
}

Result<void> Publisher::readMovies()
{
    const auto found = findMovies();
    if (!found) return found.failure();
    if (found.value().isEmpty()) return Error{QStringLiteral("No movies in %1").arg(m_order.movies)};
    const auto count = std::size_t(found.value().size());
    for (std::size_t i = 0; i < count; ++i) {
        const QString& path = found.value()[qsizetype(i)];
        m_watcher.reading(path, i + 1, count);
        readMovie(path);
    }
    return {};
}

void Publisher::readMovie(const QString& path)
{
    SourceMovie movie;
    movie.path = path;
    const QFileInfo file(sourcePath(movie));
    movie.bytes = file.size();
    movie.modified = file.lastModified().toMSecsSinceEpoch();
    const bool isKnown = m_folder.before().recall(movie);
    if (const auto learned = isKnown ? Result<void>() : m_reader.learn(movie, file.filePath()); !learned)
        m_report.leftOut.push_back({path, learned.error()});
    else
        m_sources.push_back(movie);
}

Result<void> Publisher::group()
{
    TitleGroups groups = groupTitles(m_sources);
    m_titles = std::move(groups.titles);
    m_report.leftOut.insert(m_report.leftOut.end(), groups.leftOut.begin(), groups.leftOut.end());
    if (!m_titles.empty()) return {};
    const LeftOut& first = m_report.leftOut.front();
    return Error{
        QStringLiteral("None of the %1 movies in %2 can be read (%3: %4)")
            .arg(QString::number(m_report.leftOut.size()), m_order.movies, first.path, first.reason)};
}

QStringList Publisher::plannedFiles() const
{
    QStringList files{indexName, feedName};
    for (const QString& name : carriedNames)
        files += name;
    for (const PublishedTitle& title : m_titles) {
        files << inFolder(title, indexName) << inFolder(title, posterName());
        for (const PublishedMovie& movie : title.movies) {
            files += inFolder(title, movie.fileName);
            if (!movie.originalName.isEmpty()) files += inFolder(title, movie.originalName);
        }
    }
    return files;
}

// The pages that lead to others come last: what is named is there already.
Result<void> Publisher::writeAll()
{
    if (auto done = writeCarried(); !done) return done;
    for (std::size_t i = 0; i < m_titles.size(); ++i) {
        m_watcher.writing(m_titles[i].name, i + 1, m_titles.size());
        if (auto done = writeTitle(m_titles[i]); !done) return done;
    }
    return writeOverview();
}

Result<void> Publisher::writeCarried()
{
    for (const QString& name : carriedNames)
        if (auto done = m_folder.write(name, carriedFile(name)); !done) return done;
    return {};
}

Result<void> Publisher::writeTitle(PublishedTitle& title)
{
    if (auto done = placeMovies(title); !done) return done;
    if (auto done = writePoster(title); !done) return done;
    return m_folder.write(inFolder(title, indexName), SitePages(m_order.basePath).title(title));
}

Result<void> Publisher::placeMovies(const PublishedTitle& title)
{
    for (const PublishedMovie& movie : title.movies) {
        const QString file = inFolder(title, movie.fileName);
        if (auto done = m_folder.place(file, sourcePath(movie.source), m_order.transfer); !done) return done;
        if (movie.originalName.isEmpty()) continue;
        if (auto done = m_folder.nameAgain(file, inFolder(title, movie.originalName)); !done) return done;
    }
    return {};
}

Result<void> Publisher::writePoster(PublishedTitle& title)
{
    const SourceMovie& widest = title.movies.back().source;
    const QString file = inFolder(title, posterName());
    if (m_folder.keep(file, widest.identity())) return {};
    const QByteArray picture = m_reader.poster(widest, sourcePath(widest));
    title.hasPoster = !picture.isEmpty();
    if (title.hasPoster) return m_folder.write(file, picture, widest.identity());
    m_report.withoutPoster.push_back({widest.path, QStringLiteral("no picture of it can be decoded")});
    return {};
}

Result<void> Publisher::writeOverview()
{
    const SitePages pages(m_order.basePath);
    if (auto done = m_folder.write(feedName, pages.feed(m_titles)); !done) return done;
    return m_folder.write(indexName, pages.index(m_titles));
}

/// Links are followed, so that the site does not lead through them.
QString Publisher::sourcePath(const SourceMovie& movie) const
{
    const QString path = m_order.movies + u'/' + movie.path;
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

void Publisher::countUp()
{
    m_report.titles = m_titles.size();
    for (const PublishedTitle& title : m_titles)
        for (const PublishedMovie& movie : title.movies) {
            ++m_report.movies;
            ++m_report.widths[movie.source.width];
        }
    m_report.written = m_folder.writtenCount();
    m_report.removed = m_folder.removedCount();
}

} // namespace kestro
