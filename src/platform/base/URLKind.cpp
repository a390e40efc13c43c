#include "platform/base/URLKind.h"

#include "platform/base/FileName.h"

#include <QString>
#include <QUrl>

namespace kestro {

bool isWebURL(const QUrl& url)
{
    const QString scheme = url.scheme();
    return url.isValid() && (scheme == u"http" || scheme == u"https") && !url.host().isEmpty();
}

QString lastPathComponent(const QUrl& url)
{
    return nameOf(url.path(QUrl::FullyDecoded));
}

QString upperCasePathExtension(const QUrl& url)
{
    return extensionOf(url.path(QUrl::FullyDecoded)).toUpper();
}

bool namesWebContent(const QUrl& url)
{
    return upperCasePathExtension(url) == u"SWF";
}

} // namespace kestro
