#pragma once

#include "platform/movie/MovieFault.h"

#include <QImage>
#include <QSize>

#include <optional>
#include <stop_token>

class QUrl;

namespace kestro {

/// What is known of the movie of an entry, or of its folder or list. A value. Tested by EntryReaderTest.
struct EntryFacts {
    double seconds = 0;                   ///< duration; 0 when unknown
    QImage picture;                       ///< null where there is none
    std::optional<MovieFault> fault;      ///< why it cannot be opened; nothing where it can
    std::optional<qsizetype> movies = {}; ///< how many it holds, where it is a folder or list
};

/// Looks into the movie at `url`: how long it is, and a picture of it that fits into `pixels`; of a folder
/// or list how many movies are in it. Takes milliseconds to seconds; ends early when told to stop. Any
/// thread.
[[nodiscard]] EntryFacts readEntry(const QUrl& url, QSize pixels, const std::stop_token& stop);

} // namespace kestro
