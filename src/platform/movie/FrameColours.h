#pragma once

#include "platform/movie/MovieLight.h"

struct AVFrame;
struct SwsContext;

namespace kestro {

// The colours of decoded frames, for those who convert them. Any thread, a scaler on one at a time.
// Tested by FrameShrinkerTest.

/// The colour space of a frame as libswscale names it; one that does not say is taken for what players take
/// it for.
[[nodiscard]] int coloursOf(const AVFrame& frame);

/// Whether the frame uses all of its numbers, as frames of cameras do.
[[nodiscard]] bool hasFullRange(const AVFrame& frame);

/// The light that its numbers stand for.
[[nodiscard]] MovieLight lightOf(const AVFrame& frame);

/// Tells `scaler` the colours of `frame`. What it makes of it has the same where it `keeps` them, else those
/// that it has by itself.
void setColours(SwsContext* scaler, const AVFrame& frame, bool keeps);

} // namespace kestro
