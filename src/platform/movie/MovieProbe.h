#pragma once

#include "platform/base/Result.h"
#include "platform/movie/MovieFacts.h"
#include "platform/movie/MovieFault.h"

#include <QString>

#include <chrono>
#include <stop_token>

class QUrl;

namespace kestro {

/// Looks into the local file at `path` and answers what movie it is, or why it is none. Takes milliseconds,
/// never waits for a device or a pipe, and follows no reference to another file. Any thread.
[[nodiscard]] Result<MovieFacts, MovieFault> probeMovie(const QString& path, std::stop_token stop = {});

/// The same for a file on any disk: where that never answers it does not come back, but it can be left behind
/// and does not hold up the end of the process. Any thread but the main one.
[[nodiscard]] Result<MovieFacts, MovieFault> probeMovieOnAnyDisk(const QString& path);

/// The same for a movie at an address (http or https), which may take `longest`. Any thread.
[[nodiscard]] Result<MovieFacts, MovieFault>
probeRemoteMovie(const QUrl& url, std::chrono::milliseconds longest, std::stop_token stop = {});

} // namespace kestro
