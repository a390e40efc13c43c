#pragma once

class QString;
class QUrl;

namespace kestro {

/// Whether a URL may name a movie: false when its path's extension is, in upper case, one of HTM, HTML, QT,
/// ASP, JSP, PL, WOA, PHP; true for any other and for none.
[[nodiscard]] bool isValidURL(const QUrl& url);

/// Whether a playlist entry stands for the newest trailers: auto://LatestTrailers/N/W.
[[nodiscard]] bool isAutomaticEntry(const QUrl& url);

/// The URL as absolute text, fully encoded, as it is stored and shown. QUrl keeps host names in lower case;
/// an automatic entry gets its "LatestTrailers" back.
[[nodiscard]] QString absoluteString(const QUrl& url);

} // namespace kestro
