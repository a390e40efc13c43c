#include "publish/SitePages.h"

#include "publish/MovieKinds.h"
#include "publish/PageTemplate.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

QString number(int value)
{
    return QString::number(value);
}

QString counted(std::size_t count, const QString& one, const QString& many)
{
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : many);
}

/// Parts of one line, the empty ones left out.
QString dotted(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" \u00b7 "));
}

QString sizeText(const SourceMovie& movie)
{
    return QStringLiteral("%1 \u00d7 %2").arg(movie.width).arg(movie.height);
}

QString sizesText(const PublishedTitle& title)
{
    const QString widest = sizeText(title.movies.back().source);
    if (title.movies.size() == 1) return widest;
    return QStringLiteral("%1 sizes up to %2").arg(QString::number(title.movies.size()), widest);
}

double secondsOf(const PublishedTitle& title)
{
    return std::ranges::max(title.movies, {},
                            [](const PublishedMovie& movie) { return movie.source.seconds; })
        .source.seconds;
}

/// The picture's address, seen from the title's page. A title without one shows what stands for any movie.
QString posterOf(const PublishedTitle& title)
{
    return title.hasPoster ? posterName() : QStringLiteral("../poster.svg");
}

QString badge(const PublishedTitle& title)
{
    const QString duration = durationText(secondsOf(title));
    return duration.isEmpty() ? duration : QStringLiteral("<span class=\"badge\">%1</span>").arg(duration);
}

PageTemplate::Values cardValues(const PublishedTitle& title, bool isLazy)
{
    return {{QStringLiteral("slug"), title.slug},
            {QStringLiteral("name"), title.name},
            {QStringLiteral("poster"), posterOf(title)},
            {QStringLiteral("loading"), isLazy ? QStringLiteral("lazy") : QStringLiteral("eager")},
            {QStringLiteral("facts"), dotted({title.shelf, sizesText(title)})},
            {QStringLiteral("badge"), badge(title)}};
}

PageTemplate::Values rowValues(const PublishedMovie& movie)
{
    const QString file = movie.originalName.isEmpty() ? movie.fileName : movie.originalName;
    return {{QStringLiteral("size"), sizeText(movie.source)},
            {QStringLiteral("width"), number(movie.source.width)},
            {QStringLiteral("duration"), durationText(movie.source.seconds)},
            {QStringLiteral("bytes"), bytesText(movie.source.bytes)},
            {QStringLiteral("kind"), lowerCaseExtension(movie.source.path).toUpper()},
            {QStringLiteral("file"), file}};
}

QJsonObject feedEntry(const PublishedTitle& title, const QString& path)
{
    QJsonArray movies;
    for (const PublishedMovie& movie : title.movies)
        movies += QJsonObject{{QStringLiteral("file"), movie.fileName},
                              {QStringLiteral("width"), movie.source.width},
                              {QStringLiteral("height"), movie.source.height},
                              {QStringLiteral("seconds"), movie.source.seconds},
                              {QStringLiteral("bytes"), movie.source.bytes}};
    return {{QStringLiteral("title"), title.name},
            {QStringLiteral("location"), path},
            {QStringLiteral("movies"), movies}};
}

/// JSON in ASCII, every other letter escaped.
QByteArray asciiJson(const QJsonArray& entries)
{
    QByteArray json;
    for (const QChar letter : QString::fromUtf8(QJsonDocument(entries).toJson(QJsonDocument::Compact))) {
        if (letter.unicode() < 0x80)
            json += char(letter.unicode());
        else
            json += "\\u" + QByteArray::number(letter.unicode(), 16).rightJustified(4, '0');
    }
    return json + '\n';
}

} // namespace

QString posterName()
{
    return QStringLiteral("poster.jpg");
}

QByteArray SitePages::index(const std::vector<PublishedTitle>& titles) const
{
    constexpr std::size_t atOnce = 8; // pictures that a first look shows
    const PageTemplate card = PageTemplate::carried(QStringLiteral("card.html"));
    QString cards;
    for (std::size_t i = 0; i < titles.size(); ++i)
        cards += card.filled(cardValues(titles[i], i >= atOnce));
    std::size_t movies = 0;
    for (const PublishedTitle& title : titles)
        movies += title.movies.size();
    return PageTemplate::carried(QStringLiteral("index.html"))
        .filled(
            {{QStringLiteral("cards"), cards},
             {QStringLiteral("count"),
              counted(titles.size(), QStringLiteral("title"), QStringLiteral("titles"))},
             {QStringLiteral("movies"), counted(movies, QStringLiteral("movie"), QStringLiteral("movies"))}})
        .toLatin1();
}

QByteArray SitePages::title(const PublishedTitle& title) const
{
    const PageTemplate row = PageTemplate::carried(QStringLiteral("row.html"));
    QString rows;
    for (const PublishedMovie& movie : title.movies)
        rows += row.filled(rowValues(movie));
    return PageTemplate::carried(QStringLiteral("title.html"))
        .filled({{QStringLiteral("name"), title.name},
                 {QStringLiteral("facts"),
                  dotted({title.shelf, durationText(secondsOf(title)), sizesText(title)})},
                 {QStringLiteral("poster"), posterOf(title)},
                 {QStringLiteral("rows"), rows},
                 {QStringLiteral("calls"), calls(title)}})
        .toLatin1();
}

QByteArray SitePages::feed(const std::vector<PublishedTitle>& titles) const
{
    QJsonArray entries;
    for (const PublishedTitle& title : titles)
        entries += feedEntry(title, pathOf(title));
    return asciiJson(entries);
}

QString SitePages::pathOf(const PublishedTitle& title) const
{
    return QStringLiteral("%1/trailers/%2/").arg(m_basePath, title.slug);
}

QString SitePages::calls(const PublishedTitle& title) const
{
    QStringList lines{objectCall(title, title.movies.front())};
    for (std::size_t i = 1; i < title.movies.size(); ++i)
        lines += packageCall(title, i);
    return lines.join(u'\n');
}

// The first argument is the folder's poster, which the movie's name is resolved against.
QString SitePages::objectCall(const PublishedTitle& title, const PublishedMovie& movie) const
{
    return QStringLiteral(
               "QT_WriteOBJECT_XHTML('%1poster.mov','%2','%3','','href','%1%4','original','%5','type','%6');")
        .arg(pathOf(title), number(movie.source.width), number(movie.source.height), movie.fileName,
             movie.originalName, movie.mimeType);
}

QString SitePages::packageCall(const PublishedTitle& title, std::size_t place) const
{
    const PublishedMovie& movie = title.movies[place];
    return QStringLiteral(
               "AC.Quicktime.packageMovie('m%1','%2%3',{width:%4, height:%5, original:'%6', type:'%7'});")
        .arg(number(int(place)), pathOf(title), movie.fileName, number(movie.source.width),
             number(movie.source.height), movie.originalName, movie.mimeType);
}

QString durationText(double seconds)
{
    if (!(seconds > 0)) return {};
    constexpr double longest = 1e6; // damaged files claim any duration
    const int whole = std::max(int(std::lround(std::min(seconds, longest))), 1);
    const auto two = [](int value) { return QStringLiteral("%1").arg(value, 2, 10, QChar(u'0')); };
    if (whole < 3600) return QStringLiteral("%1:%2").arg(whole / 60).arg(two(whole % 60));
    return QStringLiteral("%1:%2:%3").arg(whole / 3600).arg(two(whole / 60 % 60), two(whole % 60));
}

QString bytesText(qint64 bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

} // namespace kestro
