#include "platform/base/FileURL.h"

#include <QUrl>

namespace kestro {

std::optional<QString> localPath(const QUrl& url)
{
    if (!url.isLocalFile() || (!url.host().isEmpty() && url.host() != u"localhost")) return {};
    QUrl hostless = url;
    hostless.setHost({});
    return hostless.toLocalFile();
}

} // namespace kestro
