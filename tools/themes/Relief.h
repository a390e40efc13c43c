#pragma once

#include "Frame.h"

namespace kestro::themes {

/// How a surface leans at a pixel, and how it catches the light from the upper left.
struct Lean {
    float x = 0; ///< of the unit normal
    float y = 0;
    float light = 0; ///< 0 turned away … 1 straight at it
    float gleam = 0; ///< the light's own reflection, 0 … 1
};

/// The lean of a surface that rises by `riseX` and `riseY` a pixel to the right and down.
[[nodiscard]] inline Lean leanOf(float riseX, float riseY)
{
    const float scale = 1 / std::sqrt(riseX * riseX + riseY * riseY + 1);
    const float x = -riseX * scale;
    const float y = -riseY * scale;
    const float facing = -0.45f * x - 0.55f * y + 0.70f * scale;
    // Half way between the light and the eye.
    const float half = std::max(-0.245f * x - 0.299f * y + 0.922f * scale, 0.0f);
    const float half4 = half * half * half * half;
    const float half16 = half4 * half4 * half4 * half4;
    return {x, y, std::max(facing, 0.0f), half16 * half16 * half4};
}

} // namespace kestro::themes
