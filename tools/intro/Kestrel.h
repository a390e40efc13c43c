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
    void coverRow(int y);
    void crossLine(float y);
    void coverSpan(float left, float right, float share);

    std::vector<Point> m_outline;                           // in pixels of the canvas
    std::vector<float> m_crossings;                         // where a line crosses it, left to right
    std::vector<float> m_cover = std::vector<float>(width); // of a row of pixels
};

} // namespace kestro::intro
