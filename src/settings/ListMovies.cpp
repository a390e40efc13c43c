#include "settings/ListMovies.h"

#include "platform/base/Bounds.h"
#include "platform/base/FileURL.h"
#include "platform/base/Log.h"
#include "platform/base/URLKind.h"
#include "platform/plist/TrackLocations.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

constexpr std::array<QLatin1StringView, 3> listExtensions{".m3u"_L1, ".m3u8"_L1, ".xspf"_L1};
constexpr QByteArrayView byteOrderMark("\xef\xbb\xbf");

bool isXspf(const QString& path)
{
    return path.endsWith(".xspf"_L1, Qt::CaseInsensitive);
}

// A colon alone begins no address: a file may be called so.
bool isAddress(const QByteArray& line)
{
    const auto isPartOfScheme = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    const qsizetype end = line.indexOf("://");
    return end > 0 && std::all_of(line.begin(), line.begin() + end, isPartOfScheme);
}

QUrl movieOfLine(const QString& folder, const QByteArray& line)
{
    if (isAddress(line)) return QUrl(QString::fromUtf8(line));
    const QUrl file = QUrl::fromLocalFile(QDir(folder).filePath(QFile::decodeName(line)));
    return file.adjusted(QUrl::NormalizePathSegments);
}

QList<QUrl> moviesOfLines(const QString& path, const QByteArray& text)
{
    const QString folder = QFileInfo(path).path();
    QList<QUrl> movies;
    for (QByteArray line : text.mid(text.startsWith(byteOrderMark) ? byteOrderMark.size() : 0).split('\n')) {
        line = line.trimmed();
        if (!line.isEmpty() && !line.startsWith('#')) movies.append(movieOfLine(folder, line));
    }
    return movies;
}

std::optional<QList<QUrl>> moviesOfTracks(const QString& path, const QByteArray& text)
{
    const auto locations = trackLocations(text);
    if (!locations) return {};
    QList<QUrl> movies;
    for (const QString& location : *locations)
        movies.append(QUrl::fromLocalFile(path).resolved(QUrl(location)));
    return movies;
}

bool mayBeMovie(const QUrl& url)
{
    if (isWebURL(url)) return true;
    const auto path = localPath(url);
    return path && path->startsWith(u'/') && !path->endsWith(u'/') && !isCalledAsList(*path);
}

} // namespace

bool isCalledAsList(const QString& path)
{
    return std::any_of(listExtensions.begin(), listExtensions.end(), [&path](QLatin1StringView extension) {
        return path.endsWith(extension, Qt::CaseInsensitive);
    });
}

QList<QUrl> moviesOfList(const QString& path, const QByteArray& text)
{
    if (text.size() > Bounds::listFileBytes) {
        logLine(QStringLiteral("%1: a playlist of more than %2 bytes is left out.")
                    .arg(path)
                    .arg(Bounds::listFileBytes));
        return {};
    }
    const auto named = isXspf(path) ? moviesOfTracks(path, text) : moviesOfLines(path, text);
    if (!named) {
        logLine(QStringLiteral("%1: not a playlist.").arg(path));
        return {};
    }
    QList<QUrl> movies;
    std::copy_if(named->begin(), named->end(), std::back_inserter(movies), mayBeMovie);
    movies.resize(std::min(movies.size(), Bounds::listFileMovies));
    if (const auto left = named->size() - movies.size(); left > 0)
        logLine(QStringLiteral("%1: entries that are left out: %2.").arg(path).arg(left));
    return movies;
}

} // namespace kestro
