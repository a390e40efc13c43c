#include "settings/CacheOptions.h"

#include "platform/base/ConfigurationFile.h"

#include <array>
#include <cmath>
#include <optional>

namespace kestro {

namespace {

constexpr double megabyte = 1e6;
constexpr double gigabyte = 1e9;
constexpr double largest = 1e14;

const QString section = QStringLiteral("cache");
const QString sizeKey = QStringLiteral("size");

struct Unit {
    const char* name;
    double bytes;
};
constexpr std::array units{Unit{"MB", megabyte}, Unit{"GB", gigabyte}, Unit{"TB", 1e12}};

/// A size as it is written: "0", "500 MB", "1.5 GB"; nothing for any other text, and beyond 100 TB.
std::optional<qint64> cacheSizeFrom(const QString& text)
{
    if (text == u'0') return 0;
    for (const Unit& unit : units) {
        if (!text.endsWith(QLatin1String(unit.name), Qt::CaseInsensitive)) continue;
        bool isNumber = false;
        const double bytes = text.chopped(2).trimmed().toDouble(&isNumber) * unit.bytes;
        return isNumber && bytes >= 0 && bytes <= largest ? std::optional(std::llround(bytes)) : std::nullopt;
    }
    return {};
}

} // namespace

CacheOptions cacheOptionsFrom(const ConfigurationFile& file)
{
    CacheOptions options;
    file.warnAboutUnknown(section, {sizeKey});
    const auto text = file.value(section, sizeKey);
    if (!text) return options;
    if (const auto bytes = cacheSizeFrom(*text))
        options.bytes = *bytes;
    else
        file.warnAbout(section, sizeKey,
                       QStringLiteral("\"%1\" is neither 0 nor a size as in 500 MB or 2 GB").arg(*text));
    return options;
}

} // namespace kestro
