#pragma once

#include "platform/movie/MovieLight.h"

#include <QSize>

struct mpv_node;

namespace kestro {

// What mpv tells of a movie's frames ("video-dec-params"). Any thread. Tested by MovieColoursTest.

/// The light that its numbers stand for; plain where it does not say.
[[nodiscard]] MovieLight lightOf(const mpv_node& params);

/// Pixels, as decoded; empty where there are none yet.
[[nodiscard]] QSize frameSizeOf(const mpv_node& params);

} // namespace kestro
