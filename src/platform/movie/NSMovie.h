#pragma once

#include <memory>
#include <utility>

namespace kestro {

class QTMovie;

/// A movie in the older interface's wrapping: it only carries the movie that it stands for.
class NSMovie final {
public:
    explicit NSMovie(std::shared_ptr<kestro::QTMovie> movie)
        : m_movie(std::move(movie))
    {
    }

    /// The movie inside; may be null.
    [[nodiscard]] const std::shared_ptr<kestro::QTMovie>& movie() const { return m_movie; }

private:
    std::shared_ptr<kestro::QTMovie> m_movie;
};

} // namespace kestro
