#pragma once

class QUrl;

namespace kestro {

class Playlist;

/// Has movies from the web fetched before they are to play, so that they play from the disk. Main thread.
class AheadFetch {
public:
    virtual ~AheadFetch() = default;

    /// A saver plays `movie` of `playlist` from now on: what it will want next can be told from that. Returns
    /// at once, whatever becomes of it.
    virtual void plays(const QUrl& movie, Playlist& playlist) = 0;
};

} // namespace kestro
