#pragma once

class QString;
class QUrl;

namespace kestro {

// URLs as people may see them, in the log and elsewhere: without what lets others in. Any thread.

/// What a URL is called before people: encoded, so that it is one word, without user, password and fragment,
/// "…" in the place of a query, of the parameters of a path and of the data of a "data:" URL, and its middle
/// left out where it is longer than Bounds::shownURLCharacters. A URL that is not valid has no text; then
/// "(no valid URL)". Whoever needs the URL itself takes absoluteString().
[[nodiscard]] QString shownURL(const QUrl& url);

/// A line of whatever origin with every URL in it stripped of the same, none of them shortened. What may be
/// a secret is taken for one: a password that holds slashes or blanks is found by its "@", and a query ends
/// with the word that it is in. A line that was stripped before stays as it is.
[[nodiscard]] QString withoutSecrets(const QString& line);

} // namespace kestro
