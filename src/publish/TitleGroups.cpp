#include "publish/TitleGroups.h"

#include "publish/MovieKinds.h"
#include "publish/SizeMark.h"
#include "publish/Slug.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <tuple>

namespace kestro {

namespace {

/// Where a movie belongs: the folder that counts, and its name without the size.
struct Place {
    QString folder; ///< empty for the folder of movies itself
    QString base;
    bool operator<(const Place& other) const
    {
        return std::tie(folder, base) < std::tie(other.folder, other.base);
    }
};

using Groups = std::map<Place, std::vector<SourceMovie>>;

QString baseOf(const QString& stem, const SourceMovie& movie)
{
    const auto mark = sizeMark(stem);
    if (!mark || (mark->isPlain && !isSizeOf(mark->number, movie.width, movie.height))) return stem;
    return mark->base;
}

bool isSizeFolder(const QString& name, const SourceMovie& movie)
{
    return !name.isEmpty() && baseOf(name, movie).isEmpty();
}

Place placeOf(const SourceMovie& movie)
{
    const qsizetype slash = movie.path.lastIndexOf(u'/');
    QString folder = slash < 0 ? QString() : movie.path.left(slash);
    const QString stem = QFileInfo(movie.path).completeBaseName();
    QString base = baseOf(stem, movie);
    if (isSizeFolder(folder.section(u'/', -1), movie)) folder = folder.section(u'/', 0, -2);
    if (folder.isEmpty() && base.isEmpty()) base = stem;
    return {folder, base};
}

/// Whether a name says nothing about what the movie is.
bool isGeneric(const QString& base)
{
    static const QStringList words{QStringLiteral("trailer"), QStringLiteral("teaser"),
                                   QStringLiteral("movie"),   QStringLiteral("film"),
                                   QStringLiteral("video"),   QStringLiteral("clip")};
    return base.size() < 2 || words.contains(base, Qt::CaseInsensitive);
}

/// A file or folder name as a person would write it.
QString readable(QString name)
{
    name.replace(u'_', u' ');
    if (!name.contains(u' ')) name.replace(u'.', u' ');
    name = name.simplified();
    if (name.isEmpty()) return name;
    return name.front().toUpper() + name.mid(1);
}

QString folderName(const QString& folder)
{
    return readable(folder.section(u'/', -1));
}

QString shelfName(const QString& folder)
{
    QStringList names;
    for (const QString& part : folder.split(u'/', Qt::SkipEmptyParts))
        names += readable(part);
    return names.join(QStringLiteral(" / "));
}

bool isOnlyGenericOne(const Place& place, const Groups& groups)
{
    return std::ranges::count_if(groups, [&](const auto& group) {
               return group.first.folder == place.folder && isGeneric(group.first.base);
           }) == 1;
}

void nameTitle(PublishedTitle& title, const Place& place, const Groups& groups)
{
    const bool isFolder = !place.folder.isEmpty() && isGeneric(place.base);
    title.shelf = shelfName(isFolder ? place.folder.section(u'/', 0, -2) : place.folder);
    title.name = isFolder ? folderName(place.folder) : readable(place.base);
    if (isFolder && !place.base.isEmpty() && !isOnlyGenericOne(place, groups))
        title.name += QStringLiteral(": ") + readable(place.base);
    if (title.name.isEmpty()) title.name = place.base;
}

/// By width; of one width what more browsers play first, then by name.
bool isBefore(const SourceMovie& a, const SourceMovie& b)
{
    const auto rank = [](const SourceMovie& movie) {
        return std::tuple(movie.width, browserRank(movie.path), movie.path);
    };
    return rank(a) < rank(b);
}

PublishedMovie published(const SourceMovie& movie, const QString& slug)
{
    const QString extension = lowerCaseExtension(movie.path);
    const QString stem = QStringLiteral("%1_%2.").arg(slug).arg(movie.width);
    PublishedMovie result{movie, stem + movieExtension(), {}, mimeTypeOf(movie.path)};
    if (extension != movieExtension()) result.originalName = stem + extension;
    return result;
}

void fill(PublishedTitle& title, std::vector<SourceMovie> movies, std::vector<LeftOut>& leftOut)
{
    std::ranges::sort(movies, isBefore);
    for (const SourceMovie& movie : movies) {
        const bool isTaken = !title.movies.empty() && title.movies.back().source.width == movie.width;
        if (!isTaken)
            title.movies.push_back(published(movie, title.slug));
        else
            leftOut.push_back(
                {movie.path,
                 QStringLiteral("same title and width as %1").arg(title.movies.back().source.path)});
    }
}

/// By name as it is written without accents, names in other scripts last.
auto sortingKey(const PublishedTitle& title)
{
    const QString slug = slugOf(title.name);
    return std::tuple(slug.isEmpty(), slug, title.name);
}

} // namespace

TitleGroups groupTitles(std::vector<SourceMovie> movies)
{
    Groups groups;
    for (SourceMovie& movie : movies) {
        const Place place = placeOf(movie);
        groups[place].push_back(std::move(movie));
    }
    TitleGroups result;
    SlugMaker slugs;
    for (auto& [place, group] : groups) {
        PublishedTitle title;
        nameTitle(title, place, groups);
        title.slug = slugs.slugFor(title.name, place.folder + u'/' + place.base);
        fill(title, std::move(group), result.leftOut);
        result.titles.push_back(std::move(title));
    }
    std::ranges::stable_sort(result.titles, {}, sortingKey);
    return result;
}

} // namespace kestro
