#pragma once

#include "platform/base/Random.h"
#include "platform/display/view/Geometry.h"

namespace kestro {

/// Moves a rectangle on by one step a tick and turns it back at the edges, each time with a new speed. It
/// owns the step (`incPt`), in points: whole numbers from 4 to 8 with a sign. Owned by the engine. Main
/// thread.
class Bounce final {
public:
    explicit Bounce(Random& random)
        : m_random(random)
    {
    }

    [[nodiscard]] Point incPt() const { return m_incPt; }
    void setIncPt(Point step) { m_incPt = step; }

    /// A new step up and to the right.
    void assignRndValues();
    /// A new step in any of the four slanting directions.
    void assignRndValuesWithSign();

    /// Where `rect` goes next inside `screenFrame`, both on the desk.
    [[nodiscard]] Rect newRectFromScreen(const Rect& rect, const Rect& screenFrame);
    /// Where `rect` goes next inside a view with these bounds.
    [[nodiscard]] Rect newRectFromView(const Rect& rect, const Rect& bounds);
    /// Turns the step back on each axis on which `rect` is far beyond an edge of `area` and still moves out.
    /// One edge is turned at a time above, so that what is as large as the area would drift off it.
    void turnStray(const Rect& rect, const Rect& area);

private:
    void turnAtEdge(const Rect& rect, const Rect& area);

    Random& m_random;
    Point m_incPt;
};

} // namespace kestro
