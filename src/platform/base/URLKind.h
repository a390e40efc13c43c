#pragma once

class QString;
class QUrl;

namespace kestro {

// What a URL is, told from its text alone. Whoever decides by that asks here, so that no two of them read the
// same URL differently. Any thread.

/// Whether it leads to a web site: its scheme is http or https, and it has a host.
[[nodiscard]] bool isWebURL(const QUrl& url);

/// The last component of the URL's path, percent escapes decoded, slashes at its end left out; empty when it
/// has none. Query and fragment are no part of a path.
[[nodiscard]] QString lastPathComponent(const QUrl& url);

/// The extension of the last component of the URL's path, in upper case; empty for none. A point at the start
/// of the name begins none.
[[nodiscard]] QString upperCasePathExtension(const QUrl& url);

/// Whether the URL names web content, by the extension of its path: "SWF", in whatever case.
[[nodiscard]] bool namesWebContent(const QUrl& url);

} // namespace kestro
