#pragma once

#include <QString>
#include <QUrl>

namespace kestro {

class LatestTrailers;

/// What a movie is called before the person who watches it. A plain value. Main thread.
struct MovieWords {
    QString title; ///< the name of its file without the extension
    QString
        origin; ///< its folder's name; of a trailer its name and year; else the host that it is fetched from
    QString
        place; ///< the same, but the whole path of its folder, from "~" on where it is below the home folder

    /// Of the movie at `url`. `trailers` knows which ones are trailers.
    [[nodiscard]] static MovieWords of(const QUrl& url, LatestTrailers& trailers);

    [[nodiscard]] bool operator==(const MovieWords&) const = default;
};

/// Text of whatever origin as one line that can be drawn: without control characters and such as turn the
/// direction of what follows, blanks for line ends, and cut where it is very long.
[[nodiscard]] QString shownText(const QString& text);

} // namespace kestro
