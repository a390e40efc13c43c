#pragma once

#include "Canvas.h"

#include <vector>

namespace kestro::intro {

/// The kestrel that hovers over the lake: head still, wings beating in bouts, gliding between them. Its
/// outline is the one of the emblem in resources/kestro.svg.
class Kestrel final {
public:
    /// `phase` runs from 0 to tau over the loop.
    void draw(Canvas& canvas, float phase);

private:
    struct Point {
        float x, y;
    };

    void shape(float phase);
    void addHalf(float side, float inner, float outer);
    void addCurve(const std::vector<Point>& half, float side);
    [[nodiscard]] float coverOf(int x, int y) const;
    [[nodiscard]] bool contains(float x, float y) const;

    std::vector<Point> m_outline; // in pixels of the canvas
};

} // namespace kestro::intro
