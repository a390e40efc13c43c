#include "platform/base/KeptMovies.h"

#include "platform/base/Paths.h"
#include "platform/base/URLKind.h"

#include <QCryptographicHash>
#include <QUrl>

#include <algorithm>
#include <array>

namespace kestro {

QString keptMoviesFolder()
{
    return cacheFolder() + QStringLiteral("/movies");
}

bool canBeKept(const QUrl& movie)
{
    constexpr std::array lists{"M3U8", "M3U", "MPD", "PLS", "XSPF"};
    const QString extension = upperCasePathExtension(movie);
    const auto is = [&extension](const char* list) { return extension == QLatin1String(list); };
    return isWebURL(movie) && !namesWebContent(movie) && std::ranges::none_of(lists, is);
}

QString keptName(const QUrl& movie)
{
    const QByteArray address = movie.toEncoded(QUrl::RemoveFragment);
    return QString::fromLatin1(QCryptographicHash::hash(address, QCryptographicHash::Sha256).toHex());
}

QString keptMovieFile(const QString& folder, const QUrl& movie)
{
    return folder + u'/' + keptName(movie) + QStringLiteral(".movie");
}

} // namespace kestro
