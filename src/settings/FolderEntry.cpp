#include "settings/FolderEntry.h"

#include "platform/base/FileURL.h"
#include "platform/base/MovieFolder.h"
#include "settings/ListMovies.h"

#include <QLatin1StringView>
#include <QUrl>
#include <QUrlQuery>

#include <array>
#include <utility>

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

constexpr QLatin1StringView folderScheme("folder");
const QString recursiveKey = QStringLiteral("recursive");
const QString orderKey = QStringLiteral("order");

constexpr std::array<std::pair<QLatin1StringView, FolderEntry::Order>, 3> orders{{
    {"name"_L1, FolderEntry::Order::Name},
    {"newest"_L1, FolderEntry::Order::Newest},
    {"shuffled"_L1, FolderEntry::Order::Shuffled},
}};

} // namespace

bool isFolderEntry(const QUrl& url)
{
    return url.scheme() == folderScheme;
}

bool isListEntry(const QUrl& url)
{
    return url.isLocalFile() && isCalledAsList(url.path()) && localPath(url);
}

std::optional<FolderEntry> folderEntry(const QUrl& url)
{
    if (isListEntry(url)) return FolderEntry{.path = *localPath(url), .isList = true};
    if (!isFolderEntry(url)) return {};
    QUrl place = url;
    place.setScheme(QStringLiteral("file"));
    const auto path = localPath(place.adjusted(QUrl::RemoveQuery | QUrl::RemoveFragment));
    if (!path || !path->startsWith(u'/')) return {};
    const QUrlQuery query(url);
    FolderEntry entry{*path, query.queryItemValue(recursiveKey) == "1"_L1};
    for (const auto& [name, order] : orders)
        if (query.queryItemValue(orderKey) == name) entry.order = order;
    return entry;
}

MovieFolder movieFolder(const FolderEntry& entry)
{
    return {.path = entry.path,
            .isRecursive = entry.isRecursive,
            .isNewestFirst = entry.order == FolderEntry::Order::Newest,
            .list = entry.isList ? moviesOfList : nullptr};
}

QUrl urlOf(const FolderEntry& entry)
{
    QUrl url = QUrl::fromLocalFile(entry.path);
    if (entry.isList) return url;
    url.setScheme(folderScheme);
    url.setHost(QStringLiteral("")); // there is one, and it is empty: the path follows three slashes
    QUrlQuery query;
    if (entry.isRecursive) query.addQueryItem(recursiveKey, QStringLiteral("1"));
    for (const auto& [name, order] : orders)
        if (entry.order == order && order != FolderEntry::Order::Name) query.addQueryItem(orderKey, name);
    if (!query.isEmpty()) url.setQuery(query);
    return url;
}

} // namespace kestro
