#pragma once

class QString;
class QUrl;

namespace kestro {

/// Whether a URL may name a movie: false when its path's extension is, in upper case, one of HTM, HTML, QT, ASP, JSP,
/// PL, WOA, PHP; true for any other and for none.
[[nodiscard]] bool isValidURL(const QUrl& url);

/// The extension of the URL's path in upper case; empty for none.
[[nodiscard]] QString upperCasePathExtension(const QUrl& url);

/// The last component of the URL's path, percent escapes decoded; empty when it has none.
[[nodiscard]] QString lastPathComponent(const QUrl& url);

} // namespace kestro
