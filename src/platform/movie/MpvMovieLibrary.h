#pragma once

#include "platform/movie/MovieLibrary.h"
#include "platform/movie/MpvMovieOptions.h"

namespace kestro {

/// Opens real movies. Why a local file was refused is not told here: MovieProbe answers it. Movies may be let
/// go of on any thread; they end on the main one. Main thread; a QCoreApplication must be there.
/// Tested by LocalMovieTest.
class MpvMovieLibrary final : public MovieLibrary {
public:
    explicit MpvMovieLibrary(const MpvMovieOptions& options = {});

    /// What the screens are drawn with, and movies that are opened from now on; null for software.
    void setOpenGL(const std::shared_ptr<OpenGL>& openGL) { m_options.openGL = openGL; }

    /// Where copies of movies from the web lie, which are played in their place; empty for none. For movies
    /// that are opened from now on.
    void setKeptMovies(const QString& folder) { m_options.keptMovies = folder; }

    [[nodiscard]] std::shared_ptr<QTMovie> movieWithURL(const QUrl& url) override;

private:
    MpvMovieOptions m_options;
};

} // namespace kestro
