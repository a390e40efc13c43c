#pragma once

#include <memory>

class QUrl;

namespace kestro {

class QTMovie;

/// Opens movies. MpvMovieLibrary plays real ones, MemoryMovieLibrary ones made up by tests. Main thread.
class MovieLibrary {
public:
    virtual ~MovieLibrary() = default;

    /// Opens the movie at `url` (file, http or https). A local file is looked into and answered, or refused
    /// with null, at once. A remote movie is answered at once and loads in the background. Null for any other
    /// scheme.
    [[nodiscard]] virtual std::shared_ptr<QTMovie> movieWithURL(const QUrl& url) = 0;
};

} // namespace kestro
