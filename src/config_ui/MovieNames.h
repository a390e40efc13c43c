#pragma once

#include <QStringList>

namespace kestro {

/// Those of these files that are called as movies are, sorted. No disk is asked. Main thread. Tested by
/// DroppedMoviesTest.
[[nodiscard]] QStringList calledAsMovies(QStringList files);

} // namespace kestro
