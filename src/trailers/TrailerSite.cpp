#include "trailers/TrailerSite.h"

#include "platform/base/ConfigurationFile.h"
#include "trailers/LinkResolver.h"
#include "trailers/URLText.h"

namespace kestro {

namespace {

const QString section = QStringLiteral("trailers");
const QString startKey = QStringLiteral("start");
const QString hostKey = QStringLiteral("host");

TrailerSite siteIn(const ConfigurationFile& file)
{
    file.warnAboutUnknown(section, {startKey, hostKey});
    return {file.value(section, startKey).value_or(QString()),
            file.value(section, hostKey).value_or(QString())};
}

} // namespace

std::string TrailerSite::hostFor(const std::string& startUrl) const
{
    if (!host.isEmpty()) return host.toStdString();
    const auto parts = URLText::parse(startUrl);
    return parts ? std::string(parts->hostAndPort()) : std::string();
}

bool TrailerSite::isOnHost(const std::string& startUrl) const
{
    return CrawledSite{hostFor(startUrl)}.isOnHost(startUrl);
}

TrailerSite readTrailerSite(const QByteArray& text, const QString& path)
{
    return siteIn(ConfigurationFile(text, path));
}

TrailerSite configuredTrailerSite()
{
    return siteIn(ConfigurationFile::ofUser());
}

} // namespace kestro
