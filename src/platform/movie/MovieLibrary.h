#pragma once

#include <memory>

class QUrl;

namespace kestro {

class QTMovie;

/// Opens movies. MpvMovieLibrary plays real ones, MemoryMovieLibrary ones made up by tests. Main thread.
class MovieLibrary {
public:
    virtual ~MovieLibrary() = default;

    /// Opens the movie at `url` (file, http or https), which is answered at once and loads in the background,
    /// from a disk as from a server. Null for any other scheme, and for an address without a host.
    [[nodiscard]] virtual std::shared_ptr<QTMovie> movieWithURL(const QUrl& url) = 0;
};

} // namespace kestro
