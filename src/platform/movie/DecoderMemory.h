#pragma once

#include "platform/base/Bounds.h"
#include "platform/base/Result.h"
#include "platform/movie/MovieFault.h"

namespace kestro {

struct MovieFacts;

// What decoding a movie takes of memory, and what is too much of it (Bounds.h). Any thread.

/// Bytes of the frames that a decoder of `threads` threads holds at once: those that it makes others of,
/// one in each thread, and the one that is shown. 0 for a movie of unknown size.
[[nodiscard]] qint64 decoderBytes(const MovieFacts& facts, int threads);

/// As many of `wished` threads, at least one, as leave the frames within Bounds::decoderBytes.
[[nodiscard]] int threadsThatFit(const MovieFacts& facts, int wished);

/// Whether the movie may be decoded at all; the fault is that it is too large.
[[nodiscard]] Result<void, MovieFault> checkSize(const MovieFacts& facts);

/// The pixels that any frame of the movie may have, whatever its stream comes to say later: its own, or
/// what every stream may have.
[[nodiscard]] qint64 mostFramePixels(const MovieFacts& facts);

/// Frames that a decoder keeps for others, at this size. `codec` is libavcodec's number.
[[nodiscard]] int keptFrames(int codec, qint64 pixels);

/// Has libav refuse to take more for one thing than it may need, and keep its words to those who asked for
/// them, in the whole process. mpv hears them all the same while it plays.
void prepareLibav();

} // namespace kestro
