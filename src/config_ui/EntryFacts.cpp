#include "config_ui/EntryFacts.h"

#include "platform/base/FileLook.h"
#include "platform/base/FileURL.h"
#include "platform/base/MovieFolder.h"
#include "platform/movie/MovieProbe.h"
#include "platform/movie/StillDecoder.h"
#include "settings/FolderEntry.h"

#include <QUrl>

#include <cmath>

namespace kestro {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds longestLookAtServer{8000};
constexpr milliseconds longestLookAtFolder{10'000};
constexpr milliseconds longestLookAtDisk{10'000}; ///< which may have to spin up
constexpr milliseconds longestForPicture{5000};

/// Where in a movie its picture is taken: many begin in black.
constexpr double pictureAt = 0.25;

// A thread that waits for a disk would hold up the end of the process.
Result<MovieFacts, MovieFault> probeFile(const QString& path, const std::stop_token& stop)
{
    if (isFileThere(path, longestLookAtDisk, stop).has_value()) return probeMovie(path, stop);
    return MovieFault{MovieFault::Kind::NoAnswer};
}

Result<MovieFacts, MovieFault> probe(const QUrl& url, const std::stop_token& stop)
{
    if (const auto path = localPath(url)) return probeFile(*path, stop);
    if (url.isLocalFile()) return MovieFault{MovieFault::Kind::NoFile}; // of another machine
    if (url.scheme().startsWith(u"http")) return probeRemoteMovie(url, longestLookAtServer, stop);
    return MovieFault{MovieFault::Kind::OtherScheme};
}

QImage pictureOf(const QUrl& url, const MovieFacts& facts, QSize pixels, const std::stop_token& stop)
{
    const Size natural = facts.naturalSize();
    const QSize size = QSizeF(double(natural.width), double(natural.height))
                           .scaled(pixels, Qt::KeepAspectRatio)
                           .toSize()
                           .expandedTo({1, 1});
    StillDecoder stills(url);
    stills.setSize(size);
    return stills.picture(facts.seconds * pictureAt, longestForPicture, stop).image;
}

EntryFacts readFolder(const FolderEntry& folder, const std::stop_token& stop)
{
    EntryFacts facts;
    if (const auto movies = moviesIn(movieFolder(folder), longestLookAtFolder, stop))
        facts.movies = movies->size();
    else
        facts.fault = MovieFault{MovieFault::Kind::NoAnswer};
    return facts;
}

} // namespace

EntryFacts readEntry(const QUrl& url, QSize pixels, const std::stop_token& stop)
{
    if (const auto folder = folderEntry(url)) return readFolder(*folder, stop);
    const auto facts = probe(url, stop);
    if (!facts) return {.seconds = 0, .picture = {}, .fault = facts.failure()};
    return {facts.value().seconds, pictureOf(url, facts.value(), pixels, stop), {}};
}

} // namespace kestro
