#pragma once

#include <QByteArray>

#include <memory>

namespace kestro {

class OpenGL;

/// How real movies are played. Given once, to the library that opens them.
struct MpvMovieOptions {
    int networkTimeout = 10; ///< seconds without an answer until a remote movie fails
    QByteArray audioOutputs =
        "pipewire,pulse,alsa";         ///< tried in order; without any, sound is played to nothing
    std::weak_ptr<OpenGL> openGL = {}; ///< what the screens are drawn with, while there is any; else movies
                                       ///< are drawn in software
};

} // namespace kestro
