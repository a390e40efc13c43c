#include "platform/network/LocalFile.h"

#include "platform/base/FileURL.h"
#include "platform/base/RegularFile.h"

#include <QFileInfo>
#include <QUrl>

#include <utility>

namespace kestro {

FetchResult readLocalFile(const QUrl& url, qint64 limit, const Cancellation::Watch& watch)
{
    const auto path = localPath(url);
    if (!path) return FetchFault{.message = QStringLiteral("a file of another machine")};
    if (path->contains(QChar::Null)) return FetchFault{.message = QStringLiteral("no valid URL")};
    auto bytes = readRegularFile(*path, limit, [&watch] { return !watch.isCancelled(); });
    if (bytes) return std::move(bytes.value());
    const QFileInfo file(*path);
    const bool isTooLarge = file.isFile() && file.size() > limit;
    return FetchFault{isTooLarge ? FetchFault::Kind::OverLimit : FetchFault::Kind::Unreadable, bytes.error()};
}

} // namespace kestro
