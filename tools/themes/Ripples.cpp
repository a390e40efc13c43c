#include "Loop.h"
#include "Relief.h"

#include <vector>

namespace kestro::themes {

namespace {

/// Rings that drops make in still, blue water.
class Ripples final : public Loop {
public:
    void draw(Frame& frame, float turn) override
    {
        const float phase = tau * turn;
        for (int y = 0; y < rows; ++y)
            swellRow(y, phase);
        for (int drop = 0; drop < dropCount; ++drop)
            raiseRing(drop, fraction(turn - chance(drop, 11)));
        for (int y = 0; y < height; ++y)
            paintRow(frame, y);
    }

private:
    // The water's height is worked out for every second pixel of every second row.
    static constexpr int columns = width / 2 + 2;
    static constexpr int rows = height / 2 + 2;
    static constexpr int dropCount = 11;

    [[nodiscard]] float* row(int y) { return m_height.data() + static_cast<std::ptrdiff_t>(y) * columns; }
    [[nodiscard]] const float* row(int y) const
    {
        return m_height.data() + static_cast<std::ptrdiff_t>(y) * columns;
    }

    void swellRow(int y, float phase)
    {
        const float v = placeY(2 * y);
        float* out = row(y);
        for (int x = 0; x < columns; ++x) {
            const float u = placeX(2 * x);
            out[x] = 0.5f * quickSine(4.2f * u + 2.6f * v + phase) +
                     0.35f * quickSine(3.1f * u - 5.3f * v - phase + 1.4f * quickSine(2.2f * u + phase));
        }
    }

    /// The ring of one drop; `age` from 0 to 1 is how much of its life has gone.
    void raiseRing(int drop, float age)
    {
        constexpr float breadth = 0.17f;
        const float centreX = (chance(drop, 12) - 0.5f) * 1.5f;
        const float centreY = (chance(drop, 13) - 0.5f) * 0.8f;
        const float radius = age * 1.25f;
        const float strength =
            (0.45f + 0.55f * chance(drop, 14)) * smoothStep(0, 0.06f, age) * (1 - age) * (1 - age);
        for (int y = 0; y < rows; ++y) {
            const float dy = placeY(2 * y) - centreY;
            if (std::fabs(dy) > radius + breadth) continue;
            float* out = row(y);
            for (int x = 0; x < columns; ++x) {
                const float dx = placeX(2 * x) - centreX;
                const float behind = std::sqrt(dx * dx + dy * dy) - radius;
                const float edge = std::max(1 - behind * behind / (breadth * breadth), 0.0f);
                out[x] += strength * edge * edge * quickSine(behind * 62);
            }
        }
    }

    /// The light that comes up through the water.
    static Colour depth(float u, float v)
    {
        const float glow = std::clamp(0.72f - 0.55f * (u - 0.1f) * (u - 0.1f) - 0.9f * v, 0.0f, 1.2f);
        return mix(colourOf(4, 28, 58), colourOf(52, 158, 190), glow * (0.6f + 0.4f * glow));
    }

    void paintRow(Frame& frame, int y) const
    {
        constexpr float steepness = 3.4f;
        constexpr Colour gleam = colourOf(225, 248, 255);
        const float down = static_cast<float>(y % 2) / 2;
        const float* upper = row(y / 2);
        const float* lower = row(y / 2 + 1);
        const float v = placeY(y);
        for (int x = 0; x < width; ++x) {
            const int i = x / 2;
            const float right = static_cast<float>(x % 2) / 2;
            const float riseX = mix(upper[i + 1] - upper[i], lower[i + 1] - lower[i], down);
            const float riseY = mix(lower[i] - upper[i], lower[i + 1] - upper[i + 1], right);
            const Lean lean = leanOf(riseX * steepness, riseY * steepness);
            const Colour light = depth(placeX(x) + 0.9f * lean.x, v + 0.9f * lean.y);
            frame.set(x, y, light);
            const float level = lean.gleam * lean.gleam;
            frame.add(x, y, gleam * (0.55f * level * level));
        }
    }

    std::vector<float> m_height = std::vector<float>(static_cast<std::size_t>(columns) * rows);
};

} // namespace

std::unique_ptr<Loop> makeRipples()
{
    return std::make_unique<Ripples>();
}

} // namespace kestro::themes
