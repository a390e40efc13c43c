#pragma once

#include "Canvas.h"

#include <vector>

namespace kestro::intro {

/// The lake below the shoreline: what stands above it, mirrored in slow ripples. Paints every pixel of the
/// rows below the shoreline from those above, so it is drawn last but for what flies.
class Lake final {
public:
    /// `phase` runs from 0 to tau over the loop.
    void draw(Canvas& canvas, float phase);

private:
    void rippleRow(int y, float phase);
    void mirrorRow(Canvas& canvas, int y) const;

    std::vector<float> m_lift = std::vector<float>(width);  // rows up or down that the ripple bends the sight
    std::vector<float> m_shade = std::vector<float>(width); // of the mirrored light, how much comes back
};

} // namespace kestro::intro
