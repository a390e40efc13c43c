#pragma once

#include <QString>

#include <vector>

namespace kestro {

// Points of the screen as 32-bit floats, origin at the bottom left, y upwards.

struct Point {
    float x = 0;
    float y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    float width = 0;
    float height = 0;
    bool operator==(const Size&) const = default;

    /// Whether either side is zero or negative.
    [[nodiscard]] bool isEmpty() const { return width <= 0 || height <= 0; }
};

struct Rect {
    Point origin;
    Size size;
    bool operator==(const Rect&) const = default;

    [[nodiscard]] float left() const { return origin.x; }
    [[nodiscard]] float bottom() const { return origin.y; }
    [[nodiscard]] float right() const { return origin.x + size.width; }
    [[nodiscard]] float top() const { return origin.y + size.height; }
    [[nodiscard]] bool isEmpty() const { return size.isEmpty(); }
    [[nodiscard]] Rect movedBy(Point by) const { return {{origin.x + by.x, origin.y + by.y}, size}; }
};

/// The smallest rectangle around both; an empty one counts for nothing.
[[nodiscard]] Rect unionRect(const Rect& a, const Rect& b);

/// What both cover; an empty rectangle at (0, 0) where they do not meet.
[[nodiscard]] Rect intersectionRect(const Rect& a, const Rect& b);

/// What `rects` cover and `hole` does not, as rectangles that do not overlap where the given ones do not.
[[nodiscard]] std::vector<Rect> subtractRect(const std::vector<Rect>& rects, const Rect& hole);

/// A point as text and back: "{12, -3.5}". Text that is none reads as (0, 0).
[[nodiscard]] QString stringFromPoint(Point point);
[[nodiscard]] Point pointFromString(const QString& text);

} // namespace kestro
