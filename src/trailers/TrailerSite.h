#pragma once

#include <QByteArray>
#include <QString>

#include <string>

namespace kestro {

/// Where a crawl begins and on which host it stays.
struct TrailerSite {
    QString start; ///< address of a page; empty for none
    QString host;  ///< with a port, or for every port; empty for the start's own

    /// The host that a crawl from `startUrl` stays on.
    [[nodiscard]] std::string hostFor(const std::string& startUrl) const;
    /// Whether `startUrl` itself is on it: if not, no link of that page is.
    [[nodiscard]] bool isOnHost(const std::string& startUrl) const;
};

/// The site that the user's configuration names: keys "start" and "host" of [trailers] in the file
/// kestro/kestro.conf in the configuration folder. Empty where there is none. A line that is not understood
/// is logged and left out.
[[nodiscard]] TrailerSite configuredTrailerSite();

/// The site that the text of such a file names; the log calls the file `path`.
[[nodiscard]] TrailerSite readTrailerSite(const QByteArray& text, const QString& path);

} // namespace kestro
