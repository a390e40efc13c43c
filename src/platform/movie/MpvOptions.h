#pragma once

#include "platform/movie/MpvHandle.h"

namespace kestro {

struct MpvPlayerSetup;

/// The options that make mpv a player of one movie with nothing around it.
[[nodiscard]] MpvHandle::Options mpvOptions(const MpvPlayerSetup& setup);

/// mpv's video filter that turns a picture by `rotation` degrees clockwise; empty for none.
[[nodiscard]] QByteArray rotationFilter(int rotation);

/// mpv's volume for a share of the recorded loudness, 0 … 1.
[[nodiscard]] QByteArray mpvVolume(double volume);

} // namespace kestro
