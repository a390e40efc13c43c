#pragma once

#include <QtGlobal>

#include <chrono>
#include <cstddef>

/// How much of anything that comes from outside is taken: from web sites, movies, lists and other programs.
/// What is beyond a bound is left out, with a line in the log; docs/security.md and the manual page name them
/// too. Whoever takes something in has its bound here.
namespace kestro::Bounds {

// Property lists: settings, lists of trailers, bundles.
inline constexpr qint64 propertyListBytes = 64LL * 1024 * 1024;
inline constexpr int propertyListDepth = 256; ///< containers in containers; the root is at level 1
inline constexpr qsizetype propertyListValues = 4LL * 1024 * 1024; ///< elements and attributes of XML

// Movies. A stream that is probed is read no further than this to find out what is in it.
inline constexpr int movieSide = 8192;                      ///< pixels of either side
inline constexpr qint64 decoderBytes = 512LL * 1024 * 1024; ///< of the pictures that a decoder holds
inline constexpr qint64 pixelsOfAnyStream = 4096LL * 2304;  ///< that a stream may grow to as it plays
inline constexpr std::size_t decoderAllocation = 144UL * 1024 * 1024; ///< of libav's, for any one thing
inline constexpr int probeBytes = 5'000'000;
inline constexpr int probeSeconds = 5; ///< of the movie
inline constexpr int probeStreams = 64;
inline constexpr int cacheBytes = 32 * 1024 * 1024; ///< of a movie read ahead; half as many are kept behind

// Pictures.
inline constexpr qint64 picturePixels = 8192LL * 8192;
inline constexpr int pictureMegabytes = 512; ///< of a picture while it is decoded

// Playlists.
inline constexpr qsizetype playlistEntries = 500'000; ///< that are played, automatic entries expanded
inline constexpr std::size_t watchedFolders = 32;     ///< of the entries that are folders or lists
inline constexpr qint64 listFileBytes = 1024LL * 1024;
inline constexpr qsizetype listFileMovies = 10'000; ///< of one list

// The log.
inline constexpr qsizetype shownURLCharacters = 200;   ///< of a URL that people see; the middle is left out
inline constexpr qsizetype logLineCharacters = 4096;   ///< of one line; the rest is left out
inline constexpr std::size_t rememberedLogLines = 256; ///< that are told only once a minute

// One fetch of a page or a feed.
inline constexpr int connectSeconds = 10; ///< to find the server and connect to it
inline constexpr int silenceSeconds = 30; ///< without a byte once connected
inline constexpr int pageSeconds = 600;   ///< in all
inline constexpr qint64 pageBytes = 32LL * 1024 * 1024;
inline constexpr int redirects = 5;
// The movie of a trailer that is saved; a person waits, and may give up at any time.
inline constexpr qint64 savedMovieBytes = 2LL * 1024 * 1024 * 1024;
// The same of one that is fetched ahead, for which nobody waits.
inline constexpr int keptMovieSeconds = 2 * 60 * 60;

// What is taken out of one page.
inline constexpr qint64 unpackedPageBytes = 256LL * 1024 * 1024;
inline constexpr qint64 pageMemory = 128LL * 1024 * 1024; ///< for its links, and again for its movies
inline constexpr qint64 addressBytes = 64LL * 1024; ///< of one link or movie, as it is written and resolved
inline constexpr qint64 callBytes = 64LL * 1024;    ///< of the arguments of one script call
inline constexpr int feedsOfAPage = 100;

// One crawl. Of a real site of some ten thousand pages, depth first and page by page, none comes near.
inline constexpr int crawlPages = 200'000;                     ///< that are asked for
inline constexpr int crawlDepth = 100'000;                     ///< links from the first page down to another
inline constexpr qint64 crawlBytes = 4LL * 1024 * 1024 * 1024; ///< that came, and again those unpacked
inline constexpr int crawlSeconds = 2 * 60 * 60;
inline constexpr qint64 crawlMemory = 256LL * 1024 * 1024; ///< for links and movies of pages that are open

// The list of trailers, which is saved as a property list.
inline constexpr qsizetype listedTrailers = 200'000;
inline constexpr qsizetype listedPages = 400'000;                          ///< that were visited
inline constexpr qint64 listBytes = propertyListBytes - 8LL * 1024 * 1024; ///< with room for what is selected

// Web content: what the saver and its web helper say to each other, and what a Flash movie may take.
inline constexpr int webTextBytes = 16 * 1024;  ///< of one message: an address, a type, a reason
inline constexpr int webNoteBytes = 200;        ///< of a line for the log
inline constexpr int webPictureSide = 8192;     ///< pixels of a page
inline constexpr int webMessagesATurn = 64;     ///< taken before the event loop goes on
inline constexpr int webMessagesAPing = 8192;   ///< from the helper, between two looks at it
inline constexpr int webMessagesRefused = 1000; ///< that nobody says, of one helper
inline constexpr int webRequestsWaiting = 64;   ///< of one page
inline constexpr qint64 webRequestBytes = 32LL * 1024 * 1024;
inline constexpr qint64 webBytesAPing =
    256LL * 1024 * 1024; ///< handed to the helper, between two answers of it
inline constexpr qint64 webHelperBytes = 896LL * 1024 * 1024; ///< memory of all its processes
inline constexpr int webHelperProcesses = 48;
inline constexpr int webHelperThreads = 1024;                   ///< of all its processes
inline constexpr qint64 webProcessBytes = 2560LL * 1024 * 1024; ///< memory of one, however it is spent

// What programs tell the session: why no saver should start.
inline constexpr qsizetype inhibitorCharacters = 160; ///< of a name or a reason, on one line
inline constexpr int inhibitors = 256;                ///< that our own service keeps
inline constexpr int inhibitorsOfOne = 32;            ///< of those, from one program
inline constexpr int inhibitorsAsked = 32;            ///< of another service's, for their names

// Memory.
inline constexpr int oomScore = 1000; ///< the kernel's oom_score_adj of what plays movies; nothing is higher

} // namespace kestro::Bounds
