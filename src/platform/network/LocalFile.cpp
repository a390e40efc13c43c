#include "platform/network/LocalFile.h"

#include "platform/base/FileURL.h"
#include "platform/base/RegularFile.h"

#include <QUrl>

namespace kestro {

Result<QByteArray> readLocalFile(const QUrl& url, qint64 limit, const Cancellation::Watch& watch)
{
    const auto path = localPath(url);
    if (!path) return Error{QStringLiteral("a file of another machine")};
    if (path->contains(QChar::Null)) return Error{QStringLiteral("no valid URL")};
    return readRegularFile(*path, limit, [&watch] { return !watch.isCancelled(); });
}

} // namespace kestro
