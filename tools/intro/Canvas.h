#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace kestro::intro {

/// The picture's size in pixels, and where things stand in it; y grows downwards.
inline constexpr int width = 1920;
inline constexpr int height = 1080;
inline constexpr int shoreline = 800;
/// Where the sun is about to rise.
inline constexpr float dawnX = 1230;

/// Red, green, blue (and one unused): linear light, 1 is a bright white. One vector register.
using Light = float __attribute__((vector_size(16)));

/// The light of 8-bit picture values, as a designer picks them. The canvas' curve is a square, not sRGB's.
[[nodiscard]] constexpr Light lightOf(int red, int green, int blue)
{
    const auto linear = [](int value) {
        const float v = static_cast<float>(value) / 255;
        return v * v;
    };
    return Light{linear(red), linear(green), linear(blue), 0};
}

/// One frame while it is drawn: three planes of linear light. Owned and used by one drawing thread.
class Canvas final {
public:
    Canvas()
    {
        for (auto& plane : m_planes)
            plane.resize(static_cast<std::size_t>(width) * height);
    }

    /// The `width` values of row `y` in plane `plane` (0 red, 1 green, 2 blue).
    [[nodiscard]] float* row(int plane, int y)
    {
        return m_planes[static_cast<std::size_t>(plane)].data() + static_cast<std::ptrdiff_t>(y) * width;
    }
    [[nodiscard]] const float* row(int plane, int y) const
    {
        return const_cast<Canvas*>(this)->row(plane, y);
    }

private:
    std::array<std::vector<float>, 3> m_planes;
};

} // namespace kestro::intro
