#pragma once

#include <QString>

namespace kestro {

/// The largest number of pictures from one keyframe of the local movie at `path` to the next: by the
/// container's index where it has one, else by a look at the first few hundred packets. The whole look counts
/// as one distance when it meets no second keyframe. 0 when the movie cannot be read. Any thread.
[[nodiscard]] int keyframeDistance(const QString& path);

} // namespace kestro
