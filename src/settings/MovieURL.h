#pragma once

#include <optional>

class QString;
class QUrl;

namespace kestro {

/// What an automatic entry asks for.
struct TrailerChoice {
    int count = 0; ///< all there are where it is not above 0
    int width = 0; ///< pixels
    [[nodiscard]] bool operator==(const TrailerChoice&) const = default;
};

/// Whether a URL may name a movie: false when its path's extension is, in upper case, one of HTM, HTML, QT,
/// ASP, JSP, PL, WOA, PHP; true for any other and for none.
[[nodiscard]] bool isValidURL(const QUrl& url);

/// Whether a playlist entry is of the kind that stands for the newest trailers: auto://LatestTrailers/N/W.
[[nodiscard]] bool isAutomaticEntry(const QUrl& url);

/// The two numbers at the end of the entry's path, whether a slash follows or not; nothing where the path has
/// fewer parts or does not begin with a slash, and for an entry of any other kind.
[[nodiscard]] std::optional<TrailerChoice> trailerChoice(const QUrl& url);

/// The URL as absolute text, fully encoded, as it is stored and shown. QUrl keeps host names in lower case;
/// an automatic entry gets its "LatestTrailers" back.
[[nodiscard]] QString absoluteString(const QUrl& url);

} // namespace kestro
