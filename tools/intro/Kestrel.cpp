#include "Kestrel.h"

#include "Maths.h"

#include <array>

namespace kestro::intro {

namespace {

constexpr float span = 84; // pixels from the middle to a wing's tip
constexpr float shoulder = 0.11f;
constexpr float wrist = 0.50f;
constexpr Light plumage = lightOf(13, 14, 34);

struct Node {
    float x, y;
    bool sharp;
};

/// The right half from the crown to the tail's middle, wings level, in spans, y upwards.
constexpr std::array half{
    Node{0.000f, 0.265f, false},  Node{0.052f, 0.245f, false},  Node{0.074f, 0.190f, false},
    Node{0.094f, 0.140f, false},  Node{0.190f, 0.160f, false},  Node{0.330f, 0.225f, false},
    Node{0.480f, 0.240f, false},  Node{0.620f, 0.185f, false},  Node{0.820f, 0.080f, false},
    Node{1.000f, -0.060f, true},  Node{0.800f, -0.020f, false}, Node{0.620f, 0.000f, false},
    Node{0.450f, -0.020f, false}, Node{0.280f, -0.065f, false}, Node{0.140f, -0.100f, false},
    Node{0.092f, -0.170f, false}, Node{0.062f, -0.280f, false}, Node{0.092f, -0.420f, false},
    Node{0.165f, -0.600f, true},  Node{0.090f, -0.640f, false}, Node{0.000f, -0.652f, false},
};

/// How hard the wings beat, 0 to 1: two bouts in each loop.
float bout(float phase)
{
    return smoothStep(-0.15f, 0.75f, std::sin(2 * phase + 0.6f));
}

} // namespace

void Kestrel::draw(Canvas& canvas, float phase)
{
    shape(phase);
    const auto [highest, lowest] = std::minmax_element(
        m_outline.begin(), m_outline.end(), [](const Point& a, const Point& b) { return a.y < b.y; });
    for (int y = static_cast<int>(highest->y); y <= static_cast<int>(lowest->y); ++y) {
        coverRow(y);
        for (int plane = 0; plane < 3; ++plane) {
            float* out = canvas.row(plane, y);
            for (std::size_t x = 0; x < width; ++x)
                out[x] = mix(out[x], plumage[plane], m_cover[x]);
        }
    }
}

void Kestrel::shape(float phase)
{
    constexpr float beats = 46; // in one loop: a little over three a second
    const float strength = bout(phase);
    const float inner = 0.16f + 0.05f * std::sin(3 * phase) + 0.30f * strength * std::sin(beats * phase);
    const float outer = 0.06f * std::sin(2 * phase + 1) + 0.42f * strength * std::sin(beats * phase - 0.9f);
    m_outline.clear();
    addHalf(1, inner, outer);
    addHalf(-1, inner, outer);

    const float bank = -0.16f + 0.05f * std::sin(phase + 0.5f);
    const float x0 = 655 + 26 * std::sin(phase) + 5 * std::sin(3 * phase + 1);
    const float y0 = 452 + 13 * std::sin(2 * phase + 0.4f) + 1.5f * strength * std::sin(beats * phase + 1.8f);
    for (Point& point : m_outline) {
        const Point p = point;
        point.x = x0 + span * (p.x * std::cos(bank) + p.y * std::sin(bank));
        point.y = y0 + span * (p.x * std::sin(bank) - p.y * std::cos(bank));
    }
}

void Kestrel::addHalf(float side, float inner, float outer)
{
    std::vector<Point> bent;
    for (const Node& node : half) {
        Point p{node.x, node.y};
        const bool isWing = node.x > shoulder;
        if (isWing) {
            const float arm = std::min(node.x, wrist) - shoulder;
            const float hand = std::max(node.x - wrist, 0.0f);
            p.x = shoulder + arm * std::cos(inner) + hand * std::cos(inner + outer);
            p.y = node.y + arm * std::sin(inner) + hand * std::sin(inner + outer);
        }
        bent.push_back(p);
    }
    addCurve(bent, side);
}

void Kestrel::addCurve(const std::vector<Point>& nodes, float side)
{
    // Catmull-Rom between the nodes; a sharp node ends its neighbours' curves without rounding itself.
    constexpr int pieces = 6;
    std::vector<Point> curve;
    const int last = static_cast<int>(nodes.size()) - 1;
    for (int i = 0; i < last; ++i) {
        const auto at = [&](int k) { return nodes[static_cast<std::size_t>(std::clamp(k, 0, last))]; };
        const auto isSharp = [](int k) { return half[static_cast<std::size_t>(k)].sharp; };
        const Point b = at(i), c = at(i + 1);
        const Point a = isSharp(i) ? b : at(i - 1);
        const Point d = isSharp(i + 1) ? c : at(i + 2);
        for (int k = 0; k < pieces; ++k) {
            const float t = static_cast<float>(k) / pieces;
            const auto spline = [t](float p, float q, float r, float s) {
                return q + 0.5f * t * (r - p + t * (2 * p - 5 * q + 4 * r - s + t * (3 * (q - r) + s - p)));
            };
            curve.push_back({side * spline(a.x, b.x, c.x, d.x), spline(a.y, b.y, c.y, d.y)});
        }
    }
    if (side < 0) std::reverse(curve.begin(), curve.end());
    m_outline.insert(m_outline.end(), curve.begin(), curve.end());
}

void Kestrel::coverRow(int y)
{
    constexpr int lines = 4;
    std::fill(m_cover.begin(), m_cover.end(), 0.0f);
    for (int line = 0; line < lines; ++line) {
        crossLine(static_cast<float>(y) + (static_cast<float>(line) + 0.5f) / lines);
        for (std::size_t i = 0; i + 1 < m_crossings.size(); i += 2)
            coverSpan(m_crossings[i], m_crossings[i + 1], 1.0f / lines);
    }
}

void Kestrel::crossLine(float y)
{
    m_crossings.clear();
    Point previous = m_outline.back();
    for (const Point& point : m_outline) {
        if ((point.y > y) != (previous.y > y))
            m_crossings.push_back(point.x + (y - point.y) / (previous.y - point.y) * (previous.x - point.x));
        previous = point;
    }
    std::sort(m_crossings.begin(), m_crossings.end());
}

void Kestrel::coverSpan(float left, float right, float share)
{
    for (int x = static_cast<int>(left); x <= static_cast<int>(right); ++x) {
        const float pixel = static_cast<float>(x);
        const float covered = std::min(right, pixel + 1) - std::max(left, pixel);
        m_cover[static_cast<std::size_t>(x)] += share * covered;
    }
}

} // namespace kestro::intro
