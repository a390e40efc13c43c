#pragma once

#include "Canvas.h"

#include <array>
#include <vector>

namespace kestro::intro {

/// The sky before sunrise: night above, dawn at the shoreline, stars that twinkle. Paints every pixel of the
/// rows above the shoreline. `phase` runs from 0 to tau over the loop.
class Sky final {
public:
    Sky();
    void draw(Canvas& canvas, float phase) const;

private:
    struct Star {
        float x, y, size;
        Light light;
        float twinkle, rate;
    };

    void drawStars(Canvas& canvas, float phase) const;

    std::vector<Light> m_rows;
    std::vector<float> m_wideGlow, m_narrowGlow;
    std::vector<Star> m_stars;
};

} // namespace kestro::intro
