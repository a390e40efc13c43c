#pragma once

#include <QtGlobal>

#include <chrono>

/// How much of anything that comes from outside is taken: from web sites, movies, lists and other programs.
/// What is beyond a bound is left out, with a line in the log; docs/security.md and the manual page name them
/// too. Whoever takes something in has its bound here.
namespace kestro::Bounds {

// Property lists: settings, lists of trailers, bundles.
inline constexpr qint64 propertyListBytes = 64LL * 1024 * 1024;
inline constexpr int propertyListDepth = 256; ///< containers in containers; the root is at level 1

// The log.
inline constexpr qsizetype shownURLCharacters = 200; ///< of a URL that people see; the middle is left out
inline constexpr qsizetype logLineCharacters = 4096; ///< of one line; the rest is left out

} // namespace kestro::Bounds
