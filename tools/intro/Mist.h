#pragma once

#include "Canvas.h"

#include <cstdint>
#include <vector>

namespace kestro::intro {

/// A bank of mist that drifts sideways for ever: two copies of one cloud picture, the second a whole loop
/// behind, fade into each other, so that the end of the loop is its beginning. Drawn at a quarter of the
/// resolution.
class Mist final {
public:
    struct Look {
        float middle; // y of the bank
        float reach;  // half its height, pixels
        float drift;  // pixels in one loop
        Light light;
        float density; // most it covers, 0 to 1
        std::uint32_t seed;
    };

    explicit Mist(const Look& look);
    /// `phase` runs from 0 to tau over the loop.
    void draw(Canvas& canvas, float phase);

private:
    void mixClouds(float phase);
    void drawRow(Canvas& canvas, int y) const;

    static constexpr int scale = 4;
    Look m_look;
    int m_top, m_rows, m_columns, m_cloudColumns;
    std::vector<float> m_clouds; // the still picture, wider than the screen by the drift
    std::vector<float> m_cover;  // this frame's, with one spare column and row
};

} // namespace kestro::intro
