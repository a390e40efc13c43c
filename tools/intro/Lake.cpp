#include "Lake.h"

#include "Maths.h"

#include <array>

namespace kestro::intro {

namespace {

/// One wave train on the water; lengths in the water's own measure, whole turns to the loop.
struct Wave {
    float across, along, turns, start, size;
};

constexpr std::array waves{
    Wave{1.3f, 3.1f, 2, 0.3f, 0.80f},     Wave{-2.9f, 5.3f, 3, 1.9f, 0.62f},
    Wave{6.1f, 8.9f, 4, 4.0f, 0.46f},     Wave{-9.7f, 12.7f, 6, 2.6f, 0.36f},
    Wave{17.3f, 19.1f, 7, 5.1f, 0.26f},   Wave{-21.1f, 27.7f, 9, 0.9f, 0.20f},
    Wave{12.9f, 31.3f, -8, 3.3f, 0.16f},  Wave{37.1f, 43.9f, 11, 1.4f, 0.15f},
    Wave{-48.3f, 61.7f, 13, 4.6f, 0.12f},
};
constexpr Light deep = lightOf(6, 12, 34);

} // namespace

void Lake::draw(Canvas& canvas, float phase)
{
    for (int y = shoreline; y < height; ++y) {
        rippleRow(y, phase);
        mirrorRow(canvas, y);
    }
}

void Lake::rippleRow(int y, float phase)
{
    const float down = (static_cast<float>(y - shoreline) + 0.5f) / (height - shoreline);
    const float far = 1 / (down + 0.09f); // distance, as seen from a little above the water
    std::fill(m_lift.begin(), m_lift.end(), 0.0f);
    for (const Wave& wave : waves) {
        // A wave too short for the rows that far away would only flicker.
        const float seen = wave.size / (1 + 0.00022f * far * far * wave.along * wave.along);
        const float rowPhase = wave.along * far * 1.9f + wave.start - wave.turns * phase;
        const float stretch = wave.across * far * 1.7f / width;
        for (int x = 0; x < width; ++x)
            m_lift[static_cast<std::size_t>(x)] +=
                seen * quickSine(stretch * (static_cast<float>(x) - width / 2.0f) + rowPhase);
    }
    const float bend = 2 + 24 * down;
    const float mirror = mix(0.94f, 0.54f, std::sqrt(down));
    for (int x = 0; x < width; ++x) {
        const auto i = static_cast<std::size_t>(x);
        m_shade[i] = mirror * (1 + 0.20f * down * m_lift[i]);
        m_lift[i] *= bend;
    }
}

void Lake::mirrorRow(Canvas& canvas, int y) const
{
    // The view is foreshortened: the water shows a taller stretch of the sky than it is tall itself.
    const float down = static_cast<float>(y - shoreline) + 0.5f;
    const float source = static_cast<float>(shoreline) - 1 - down * 1.6f;
    for (int plane = 0; plane < 3; ++plane) {
        const float* picture = canvas.row(plane, 0);
        float* out = canvas.row(plane, y);
        const float depth = deep[plane];
        for (int x = 0; x < width; ++x) {
            const auto i = static_cast<std::size_t>(x);
            const float at = std::clamp(source + m_lift[i], 0.0f, shoreline - 2.0f);
            const int above = static_cast<int>(at);
            const float* pixel = picture + above * width + x;
            const float light = mix(pixel[0], pixel[width], at - static_cast<float>(above));
            out[x] = depth + light * m_shade[i];
        }
    }
}

} // namespace kestro::intro
