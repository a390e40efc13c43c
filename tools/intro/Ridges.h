#pragma once

#include "Canvas.h"

#include <cstdint>
#include <vector>

namespace kestro::intro {

/// One line of hills before the dawn, hazed towards its foot, that shifts a little as the viewer drifts:
/// nearer lines more. Opaque below its crest, down to the shoreline.
class Ridge final {
public:
    struct Look {
        float crest;     // y of its middle height
        float rise;      // how far peaks stand above it, pixels
        float peakWidth; // of its broadest hills, pixels
        float trees;     // height of the trees on it, pixels
        float shift;     // how far it moves to each side over the loop, pixels
        Light top, foot;
        float dawn; // how much of the dawn's light its haze takes
        std::uint32_t seed;
    };

    explicit Ridge(const Look& look);
    /// `phase` runs from 0 to tau over the loop.
    void draw(Canvas& canvas, float phase);

private:
    [[nodiscard]] float crestAt(float x) const;
    [[nodiscard]] float treesAt(float x) const;
    void moveTo(float offset);

    static constexpr int fine = 4; // heights to the pixel
    static constexpr int margin = 96;
    Look m_look;
    std::vector<float> m_crest;
    std::vector<float> m_dawn;
    std::vector<float> m_first,
        m_steepness; // per column: where cover begins, and how much a pixel adds to it
    float m_highest;
};

/// The hills of the scene, far to near.
[[nodiscard]] std::vector<Ridge> makeRidges();

} // namespace kestro::intro
