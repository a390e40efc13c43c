#pragma once

#include "platform/base/Bounds.h"
#include "platform/movie/MovieProbe.h"

#include <QByteArray>

#include <chrono>
#include <functional>
#include <memory>

namespace kestro {

class OpenGL;

/// How real movies are played. Given once, to the library that opens them.
struct MpvMovieOptions {
    int networkTimeout = 10; ///< seconds without an answer until a remote movie fails
    /// What a local file is; called on other threads, may never come back.
    std::function<Result<MovieFacts, MovieFault>(const QString& path)> probe = probeMovieOnAnyDisk;
    std::chrono::milliseconds longestProbe{2000};  ///< until a local movie whose disk does not answer fails
    std::chrono::milliseconds longestStall{15000}; ///< without progress until one that plays fails
    QString keptMovies = {};             ///< the folder with copies of movies from the web; empty for none
    int cacheBytes = Bounds::cacheBytes; ///< read ahead of a remote movie; half as many are kept behind
    QByteArray audioOutputs =
        "pipewire,pulse,alsa";         ///< tried in order; without any, sound is played to nothing
    std::weak_ptr<OpenGL> openGL = {}; ///< what the screens are drawn with, while there is any; else movies
                                       ///< are drawn in software
};

} // namespace kestro
