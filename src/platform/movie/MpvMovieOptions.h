#pragma once

#include <QByteArray>

namespace kestro {

/// How real movies are played. Given once, to the library that opens them.
struct MpvMovieOptions {
    int networkTimeout = 10; ///< seconds without an answer until a remote movie fails
    QByteArray audioOutputs =
        "pipewire,pulse,alsa"; ///< tried in order; without any, sound is played to nothing
};

} // namespace kestro
