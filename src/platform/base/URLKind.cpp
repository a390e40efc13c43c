#include "platform/base/URLKind.h"

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
    const QString decoded = url.path(QUrl::FullyDecoded);
    QStringView path = decoded;
    while (path.endsWith(u'/'))
        path.chop(1);
    return path.sliced(path.lastIndexOf(u'/') + 1).toString();
}

QString upperCasePathExtension(const QUrl& url)
{
    const QString name = lastPathComponent(url);
    const qsizetype point = name.lastIndexOf(u'.');
    // A point at the start hides a file; what follows it is the name.
    return point <= 0 ? QString() : name.sliced(point + 1).toUpper();
}

bool namesWebContent(const QUrl& url)
{
    return upperCasePathExtension(url) == u"SWF";
}

} // namespace kestro
