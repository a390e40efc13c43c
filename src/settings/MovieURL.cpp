#include "settings/MovieURL.h"

#include "platform/base/StoredValue.h"
#include "platform/base/URLKind.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <array>

namespace kestro {

namespace {

// Pages and programs of a web site, and the reference files that point at a movie elsewhere.
constexpr std::array<QLatin1StringView, 8> noMovieExtensions{
    QLatin1StringView("HTM"), QLatin1StringView("HTML"), QLatin1StringView("QT"),  QLatin1StringView("ASP"),
    QLatin1StringView("JSP"), QLatin1StringView("PL"),   QLatin1StringView("WOA"), QLatin1StringView("PHP"),
};

constexpr QLatin1StringView automaticScheme("auto");
const QString automaticHost = QStringLiteral("LatestTrailers");

} // namespace

bool isValidURL(const QUrl& url)
{
    return std::find(noMovieExtensions.begin(), noMovieExtensions.end(), upperCasePathExtension(url)) ==
           noMovieExtensions.end();
}

bool isAutomaticEntry(const QUrl& url)
{
    return url.scheme() == automaticScheme;
}

// The empty part before the path's first slash counts as one.
std::optional<TrailerChoice> trailerChoice(const QUrl& url)
{
    QString path = url.path(QUrl::FullyDecoded);
    if (!isAutomaticEntry(url) || !path.startsWith(u'/')) return {};
    if (path.size() > 1 && path.endsWith(u'/')) path.chop(1);
    const QStringList parts = path.split(u'/');
    const qsizetype last = parts.size() - 1;
    if (last < 2) return {};
    return TrailerChoice{intValue(parts[last - 1]), intValue(parts[last])};
}

QString absoluteString(const QUrl& url)
{
    QString text = url.toString(QUrl::FullyEncoded);
    if (isAutomaticEntry(url) && url.host().compare(automaticHost, Qt::CaseInsensitive) == 0)
        text.replace(text.indexOf(url.host()), automaticHost.size(), automaticHost);
    return text;
}

} // namespace kestro
