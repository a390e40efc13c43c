#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

// Small float functions that the compiler can vectorise. Pure; any thread.

namespace kestro::intro {

inline constexpr float tau = 6.28318531f;

[[nodiscard]] inline float mix(float a, float b, float t)
{
    return a + (b - a) * t;
}

/// 0 below `a`, 1 above `b`, a smooth step between.
[[nodiscard]] inline float smoothStep(float a, float b, float x)
{
    const float t = std::clamp((x - a) / (b - a), 0.0f, 1.0f);
    return t * t * (3 - 2 * t);
}

/// Sine of `x` radians, off by less than 0.0012: a parabola with one correction, as in software synthesizers.
[[nodiscard]] inline float quickSine(float x)
{
    const float turns = x * (1 / tau);
    const float t = (turns - std::floor(turns + 0.5f)) * 2;
    const float y = 4 * t * (1 - std::fabs(t));
    return y * (0.775f + 0.225f * std::fabs(y));
}

/// A well mixed word for each word (the finaliser of MurmurHash3).
[[nodiscard]] inline std::uint32_t hashOf(std::uint32_t x)
{
    x = (x ^ (x >> 16)) * 0x85ebca6bU;
    x = (x ^ (x >> 13)) * 0xc2b2ae35U;
    return x ^ (x >> 16);
}

/// A chance value from 0 to 1 that belongs to `x` and `seed`.
[[nodiscard]] inline float chance(int x, std::uint32_t seed)
{
    const auto word = hashOf(static_cast<std::uint32_t>(x) + seed * 0x9e3779b9U);
    return static_cast<float>(word >> 8) * (1.0f / 16777216.0f);
}

/// Smooth noise from 0 to 1 along a line, one value to the unit.
[[nodiscard]] inline float noise(float x, std::uint32_t seed)
{
    const float cell = std::floor(x);
    const int i = static_cast<int>(cell);
    const float t = x - cell;
    return mix(chance(i, seed), chance(i + 1, seed), t * t * (3 - 2 * t));
}

/// Smooth noise from 0 to 1 on a plane.
[[nodiscard]] inline float noise(float x, float y, std::uint32_t seed)
{
    const float row = std::floor(y);
    const auto i = static_cast<std::uint32_t>(static_cast<int>(row));
    const float t = y - row;
    return mix(noise(x, seed + i * 7919U), noise(x, seed + (i + 1) * 7919U), t * t * (3 - 2 * t));
}

} // namespace kestro::intro
