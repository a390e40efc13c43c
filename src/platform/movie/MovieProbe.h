#pragma once

#include "platform/base/Result.h"
#include "platform/movie/MovieFacts.h"

#include <QString>

namespace kestro {

/// Looks into the local file at `path` and answers what movie it is, or why it is none. Takes milliseconds,
/// never waits for a device or a pipe, and follows no reference to another file. Any thread.
[[nodiscard]] Result<MovieFacts> probeMovie(const QString& path);

} // namespace kestro
