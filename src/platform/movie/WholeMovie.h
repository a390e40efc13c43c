#pragma once

#include "platform/base/Result.h"
#include "platform/movie/MovieFault.h"

#include <QString>

#include <chrono>

namespace kestro {

/// Whether the local file at `path` is a movie that is there to its end, as far as its container tells:
/// everything in it is read, nothing is decoded. May take as long as reading the file does, `longest` at
/// most. Any thread. Tested by MovieCheckTest.
[[nodiscard]] Result<void, MovieFault> checkWholeMovie(const QString& path, std::chrono::seconds longest);

} // namespace kestro
