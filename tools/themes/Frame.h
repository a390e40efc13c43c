#pragma once

#include "Maths.h"

#include <array>
#include <cstddef>
#include <vector>

namespace kestro::themes {

using intro::chance;
using intro::mix;
using intro::noise;
using intro::quickSine;
using intro::smoothStep;
using intro::tau;

inline constexpr int width = 1024;
inline constexpr int height = 576;
/// Width in heights: shapes are measured in heights, from the middle of the picture, y downwards.
inline constexpr float aspect = static_cast<float>(width) / height;

[[nodiscard]] constexpr float placeX(int x)
{
    return (static_cast<float>(x) + 0.5f) / height - aspect / 2;
}
[[nodiscard]] constexpr float placeY(int y)
{
    return (static_cast<float>(y) + 0.5f) / height - 0.5f;
}

/// Picture values from 0 to 1, as a screen shows them.
struct Colour {
    float red = 0;
    float green = 0;
    float blue = 0;
};

[[nodiscard]] constexpr Colour colourOf(int red, int green, int blue)
{
    return {static_cast<float>(red) / 255, static_cast<float>(green) / 255, static_cast<float>(blue) / 255};
}
[[nodiscard]] inline Colour mix(const Colour& a, const Colour& b, float t)
{
    return {mix(a.red, b.red, t), mix(a.green, b.green, t), mix(a.blue, b.blue, t)};
}
[[nodiscard]] inline Colour operator*(const Colour& colour, float factor)
{
    return {colour.red * factor, colour.green * factor, colour.blue * factor};
}

/// One picture while it is drawn: three planes. Owned and used by one drawing thread.
class Frame final {
public:
    Frame()
    {
        for (auto& plane : m_planes)
            plane.resize(static_cast<std::size_t>(width) * height);
    }

    /// The `width` values of row `y` in plane `plane` (0 red, 1 green, 2 blue).
    [[nodiscard]] float* row(int plane, int y)
    {
        return m_planes[static_cast<std::size_t>(plane)].data() + static_cast<std::ptrdiff_t>(y) * width;
    }
    void set(int x, int y, const Colour& colour)
    {
        row(0, y)[x] = colour.red;
        row(1, y)[x] = colour.green;
        row(2, y)[x] = colour.blue;
    }
    /// Lays `colour` over the pixel, `cover` of it.
    void blend(int x, int y, const Colour& colour, float cover)
    {
        row(0, y)[x] += (colour.red - row(0, y)[x]) * cover;
        row(1, y)[x] += (colour.green - row(1, y)[x]) * cover;
        row(2, y)[x] += (colour.blue - row(2, y)[x]) * cover;
    }
    void add(int x, int y, const Colour& light)
    {
        row(0, y)[x] += light.red;
        row(1, y)[x] += light.green;
        row(2, y)[x] += light.blue;
    }

private:
    std::array<std::vector<float>, 3> m_planes;
};

/// Calls `pixel(x, y, dx, dy)` for each pixel of the square of `reach` around a place, with the distance from
/// there; places and distances in heights.
template <typename Pixel>
void around(float centreX, float centreY, float reach, Pixel pixel)
{
    const auto first = [](float place, float half, int end) {
        return std::clamp(static_cast<int>((place + half) * height), 0, end);
    };
    const int left = first(centreX - reach, aspect / 2, width);
    const int right = first(centreX + reach + 2.0f / height, aspect / 2, width);
    const int top = first(centreY - reach, 0.5f, height);
    const int bottom = first(centreY + reach + 2.0f / height, 0.5f, height);
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
            pixel(x, y, placeX(x) - centreX, placeY(y) - centreY);
}

/// How much of a pixel lies inside an edge that is `distance` heights away, positive inside.
[[nodiscard]] inline float coverOf(float distance)
{
    return std::clamp(distance * height + 0.5f, 0.0f, 1.0f);
}

/// The part of a turn since the last whole one.
[[nodiscard]] inline float fraction(float turns)
{
    return turns - std::floor(turns);
}

} // namespace kestro::themes
