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

// The log.
inline constexpr qsizetype shownURLCharacters = 200;   ///< of a URL that people see; the middle is left out
inline constexpr qsizetype logLineCharacters = 4096;   ///< of one line; the rest is left out
inline constexpr std::size_t rememberedLogLines = 256; ///< that are told only once a minute

} // namespace kestro::Bounds
