#include "publish/BaseAddress.h"

#include <QStringList>
#include <QUrl>

namespace kestro {

namespace {

QString escapedPath(const QString& path)
{
    QStringList parts;
    for (const QString& part : path.split(u'/', Qt::SkipEmptyParts))
        parts += QString::fromLatin1(QUrl::toPercentEncoding(part));
    return parts.isEmpty() ? QString() : u'/' + parts.join(u'/');
}

} // namespace

Result<BaseAddress> BaseAddress::parse(const QString& address)
{
    const QUrl url(address, QUrl::StrictMode);
    const bool isWeb = url.scheme() == QStringLiteral("http") || url.scheme() == QStringLiteral("https");
    if (!url.isValid() || !isWeb || url.host().isEmpty())
        return Error{QStringLiteral("\"%1\" is no http or https address").arg(address)};
    if (url.hasQuery() || url.hasFragment() || !url.userInfo().isEmpty())
        return Error{QStringLiteral("\"%1\" holds more than a host and a path").arg(address)};
    const QString path = escapedPath(url.adjusted(QUrl::NormalizePathSegments).path(QUrl::FullyDecoded));
    const QString root = url.toString(QUrl::RemovePath | QUrl::FullyEncoded);
    return BaseAddress{root + path, path};
}

bool BaseAddress::isFollowed() const
{
    return path.isEmpty() || path.startsWith(QStringLiteral("/trailers"));
}

} // namespace kestro
