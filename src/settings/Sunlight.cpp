#include "settings/Sunlight.h"

#include "platform/base/ConfigurationFile.h"

#include <QDateTime>

#include <cmath>
#include <numbers>

namespace kestro {

namespace {

const QString section = QStringLiteral("place");
const QString latitudeKey = QStringLiteral("latitude");
const QString longitudeKey = QStringLiteral("longitude");

/// Of the sun's centre when its edge is at the horizon: half its width, and what the air bends.
constexpr double horizon = -0.833; // degrees

double sine(double degrees)
{
    return std::sin(degrees * std::numbers::pi / 180);
}

double cosine(double degrees)
{
    return std::cos(degrees * std::numbers::pi / 180);
}

double inDegrees(double radians)
{
    return radians * 180 / std::numbers::pi;
}

/// The sun's longitude as it seems from the earth, in degrees; `centuries` since the year 2000.
double sunLongitude(double centuries, double node)
{
    const double mean = 280.46646 + centuries * (36000.76983 + centuries * 0.0003032);
    const double anomaly = 357.52911 + centuries * (35999.05029 - centuries * 0.0001537);
    const double centre = sine(anomaly) * (1.914602 - centuries * (0.004817 + centuries * 0.000014)) +
                          sine(2 * anomaly) * (0.019993 - centuries * 0.000101) +
                          sine(3 * anomaly) * 0.000289;
    return mean + centre - 0.00569 - 0.00478 * sine(node);
}

/// How far the earth's axis leans, in degrees.
double axis(double centuries, double node)
{
    const double seconds = 21.448 - centuries * (46.815 + centuries * (0.00059 - centuries * 0.001813));
    return 23 + (26 + seconds / 60) / 60 + 0.00256 * cosine(node);
}

/// A number of degrees from -most to most; nothing for any other text.
std::optional<double> degreesIn(const ConfigurationFile& file, const QString& key, double most)
{
    const auto text = file.value(section, key);
    if (!text || text->isEmpty()) return {};
    bool isNumber = false;
    const double degrees = text->toDouble(&isNumber);
    if (isNumber && std::abs(degrees) <= most) return degrees;
    file.warnAbout(section, key,
                   QStringLiteral("\"%1\" is no number of degrees up to %2").arg(*text).arg(most));
    return {};
}

} // namespace

bool isSunUp(const Place& place, const QDateTime& moment)
{
    constexpr double millisecondsPerDay = 24.0 * 60 * 60 * 1000;
    constexpr double daysTo2000 = 10957.5; // from the year 1970, to noon
    const double days = static_cast<double>(moment.toMSecsSinceEpoch()) / millisecondsPerDay - daysTo2000;
    const double centuries = days / 36525;
    const double node = 125.04 - 1934.136 * centuries;
    const double longitude = sunLongitude(centuries, node);
    const double lean = axis(centuries, node);
    const double ascension = inDegrees(std::atan2(cosine(lean) * sine(longitude), cosine(longitude)));
    const double declination = inDegrees(std::asin(sine(lean) * sine(longitude)));
    const double hourAngle = 280.46061837 + 360.98564736629 * days + place.longitude - ascension;
    const double height = sine(place.latitude) * sine(declination) +
                          cosine(place.latitude) * cosine(declination) * cosine(hourAngle);
    return height > sine(horizon);
}

std::optional<Place> placeFrom(const ConfigurationFile& file)
{
    file.warnAboutUnknown(section, {latitudeKey, longitudeKey});
    const auto latitude = degreesIn(file, latitudeKey, Place::mostLatitude);
    const auto longitude = degreesIn(file, longitudeKey, Place::mostLongitude);
    return latitude && longitude ? std::optional(Place{*latitude, *longitude}) : std::nullopt;
}

} // namespace kestro
