#pragma once

#include <optional>

class QDateTime;

namespace kestro {

class ConfigurationFile;

/// A place on earth, in degrees: north and east of zero. A plain value.
struct Place {
    static constexpr double mostLatitude = 90;
    static constexpr double mostLongitude = 180;

    double latitude = 0;
    double longitude = 0;

    [[nodiscard]] bool operator==(const Place&) const = default;
};

/// Whether the upper edge of the sun stands above the horizon there, as almanacs count it: between sunrise
/// and sunset, to a minute or two. In a midnight sun it does all day, in a polar night at no time. By the
/// equations of Jean Meeus, "Astronomical Algorithms", chapters 12, 13 and 25, which NOAA's solar calculator
/// goes by too; no network is asked.
[[nodiscard]] bool isSunUp(const Place& place, const QDateTime& moment);

/// Where the person is: [place] of kestro.conf, whose keys are "latitude" and "longitude". Nothing where one
/// of them is missing or, with a line in the log, not understood.
[[nodiscard]] std::optional<Place> placeFrom(const ConfigurationFile& file);

} // namespace kestro
