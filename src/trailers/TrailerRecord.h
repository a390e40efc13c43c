#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

namespace kestro {

/// One movie file that a crawl found. A plain value; its identity is its URL. Any thread.
struct TrailerRecord {
    /// "URL": absolute, as the platform's URL object prints it.
    QString url;
    /// "Size": "width x height" in points, "---" for a side that the page does not give.
    std::optional<QString> size;
    /// "Date": the day it was found, "%04d/%02d/%02d" of the local calendar.
    std::optional<QString> date;
    /// "AC" = "Y": it came from a package-movie call.
    bool ac = false;
    /// "Sel", and whatever a list file holds that is not known here; kept as it was read.
    QVariantMap other;

    [[nodiscard]] bool operator==(const TrailerRecord&) const = default;
};

} // namespace kestro
