#pragma once

#include "platform/display/view/Geometry.h"

namespace kestro {

class AvInput;

/// What is known of a movie without playing it. A value; any thread. Tested by MovieProbeTest.
struct MovieFacts {
    int codedWidth = 0; ///< pixels, as stored
    int codedHeight = 0;
    double pixelAspect = 1;      ///< width of a pixel over its height
    int rotation = 0;            ///< degrees clockwise to turn it upright: 0, 90, 180 or 270
    double seconds = 0;          ///< duration; 0 when unknown
    double frameSeconds = 0;     ///< from one frame to the next; 0 when that varies
    double framesPerSecond = 30; ///< on average; a guess when unknown
    bool hasNewerCodec = false;  ///< newer than H.264, harder to decode
    bool hasSound = false;
    int bitsPerPixel = 12; ///< of a decoded frame; a guess when unknown
    int keptFrames = 0;    ///< that its decoder makes others of

    /// Whether turning it upright swaps its sides.
    [[nodiscard]] bool isOnItsSide() const { return rotation % 180 != 0; }
    /// Points at one pixel a point, upright, pixel aspect applied (the longer of both sides that fit is
    /// kept).
    [[nodiscard]] Size naturalSize() const;
};

/// Reads the facts of an opened movie.
[[nodiscard]] MovieFacts movieFacts(const AvInput& input);

} // namespace kestro
