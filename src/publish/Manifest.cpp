#include "publish/Manifest.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace kestro {

namespace {

const QString filesKey = QStringLiteral("files");
const QString moviesKey = QStringLiteral("movies");
const QString bytesKey = QStringLiteral("bytes");
const QString modifiedKey = QStringLiteral("modified");
const QString widthKey = QStringLiteral("width");
const QString heightKey = QStringLiteral("height");
const QString secondsKey = QStringLiteral("seconds");

/// Files that are ours are deleted one day: nothing but a name of the kind that we write may lead to one.
bool isOurKindOfName(const QString& file)
{
    static const QRegularExpression pattern(QStringLiteral("^([a-z0-9-]+/)?[a-z0-9_-]+\\.[a-z0-9]+$"));
    return pattern.match(file).hasMatch() && !file.contains(u'\n');
}

SourceMovie movieOf(const QString& path, const QJsonObject& facts)
{
    SourceMovie movie;
    movie.path = path;
    movie.bytes = facts.value(bytesKey).toInteger();
    movie.modified = facts.value(modifiedKey).toInteger();
    movie.width = facts.value(widthKey).toInt();
    movie.height = facts.value(heightKey).toInt();
    movie.seconds = facts.value(secondsKey).toDouble();
    return movie;
}

QJsonObject factsOf(const SourceMovie& movie)
{
    return {{bytesKey, movie.bytes},
            {modifiedKey, movie.modified},
            {widthKey, movie.width},
            {heightKey, movie.height},
            {secondsKey, movie.seconds}};
}

} // namespace

Result<Manifest> Manifest::parse(const QByteArray& json)
{
    const QJsonObject root = QJsonDocument::fromJson(json).object();
    if (!root.value(filesKey).isObject()) return Error{QStringLiteral("it is damaged")};
    Manifest manifest;
    const QJsonObject files = root.value(filesKey).toObject();
    for (auto file = files.begin(); file != files.end(); ++file) {
        if (!isOurKindOfName(file.key())) return Error{QStringLiteral("it names %1").arg(file.key())};
        manifest.m_files.insert(file.key(), file.value().toString());
    }
    const QJsonObject movies = root.value(moviesKey).toObject();
    for (auto movie = movies.begin(); movie != movies.end(); ++movie)
        manifest.m_movies.insert(movie.key(), movieOf(movie.key(), movie.value().toObject()));
    return manifest;
}

QByteArray Manifest::json() const
{
    QJsonObject files;
    for (auto file = m_files.begin(); file != m_files.end(); ++file)
        files.insert(file.key(), file.value());
    QJsonObject movies;
    for (const SourceMovie& movie : m_movies)
        movies.insert(movie.path, factsOf(movie));
    return QJsonDocument(QJsonObject{{filesKey, files}, {moviesKey, movies}}).toJson();
}

bool Manifest::recall(SourceMovie& movie) const
{
    const auto found = m_movies.find(movie.path);
    if (found == m_movies.end() || found->identity() != movie.identity()) return false;
    if (found->width <= 0 || found->height <= 0) return false;
    movie = *found;
    return true;
}

void Manifest::setMovies(const std::vector<SourceMovie>& movies)
{
    m_movies.clear();
    for (const SourceMovie& movie : movies)
        m_movies.insert(movie.path, movie);
}

} // namespace kestro
