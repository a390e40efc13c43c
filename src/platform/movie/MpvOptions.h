#pragma once

#include "platform/movie/MpvHandle.h"

#include <QtGlobal>

namespace kestro {

struct MpvPlayerSetup;

/// Nothing of the user's mpv, no window, no subtitles, no files beside the movie.
[[nodiscard]] MpvHandle::Options plainOptions();

/// The options that make mpv a player of one movie with nothing around it.
/// Tested by DecoderMemoryTest, DecoderThreadsTest and CardDrawingTest.
[[nodiscard]] MpvHandle::Options mpvOptions(const MpvPlayerSetup& setup);

/// mpv's video filters that turn a frame by `rotation` degrees clockwise and, where it is to be drawn in
/// software, keep the scaler from changing its light, of which it knows too little.
[[nodiscard]] QByteArray videoFilters(int rotation, bool inSoftware);

/// The option of libavcodec's decoders that has them refuse frames of more than so many pixels.
[[nodiscard]] QByteArray decoderBound(qint64 pixels);

/// mpv's volume for a share of the recorded loudness, 0 … 1.
[[nodiscard]] QByteArray mpvVolume(double volume);

} // namespace kestro
