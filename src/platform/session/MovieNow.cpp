#include "platform/session/MovieNow.h"

#include "platform/base/URLKind.h"

#include <QFileInfo>

namespace kestro {

namespace {

const QString urlKey = QStringLiteral("url");
const QString titleKey = QStringLiteral("title");

} // namespace

MovieNow MovieNow::of(const QUrl& url)
{
    const QString name = QFileInfo(lastPathComponent(url)).completeBaseName();
    return {url.toString(QUrl::FullyEncoded | QUrl::RemoveUserInfo), name.isEmpty() ? url.host() : name};
}

MovieNow MovieNow::from(const QVariantMap& map)
{
    return {map.value(urlKey).toString(), map.value(titleKey).toString()};
}

QVariantMap MovieNow::map() const
{
    return isNone() ? QVariantMap() : QVariantMap{{urlKey, url}, {titleKey, title}};
}

} // namespace kestro
