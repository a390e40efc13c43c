#include "Frame.h"
#include "Loop.h"

#include <vector>

namespace kestro::themes {

namespace {

constexpr Colour ink = colourOf(74, 44, 26);
constexpr Colour faded = colourOf(150, 108, 66);
constexpr Colour cream = colourOf(248, 232, 196);
constexpr Colour red = colourOf(166, 42, 34);

/// An old chart with a compass whose rose comes to rest again and again.
class Compass final : public Loop {
public:
    Compass()
    {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                m_chart.push_back(chart(placeX(x), placeY(y)));
    }

    void draw(Frame& frame, float turn) override
    {
        const float phase = tau * (turn + rest);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                frame.set(x, y, m_chart[static_cast<std::size_t>(y * width + x)]);
        const float ring = tau * turn / 12; // alone keeps an even pace
        const float rose = 0.22f * std::sin(phase) + 0.07f * std::sin(2 * phase + 1);
        const float needle = 0.5f * std::sin(phase + 0.8f) + 0.16f * std::sin(3 * phase);
        around(0, 0, outer + 0.02f, [&](int x, int y, float dx, float dy) {
            const float away = std::sqrt(dx * dx + dy * dy);
            const float angle = std::atan2(dx, -dy);
            drawRing(frame, x, y, away, angle - ring);
            drawStar(frame, x, y, {away, angle - rose, 8, 0.27f, 0.085f});
            drawStar(frame, x, y, {away, angle - rose, 4, 0.36f, 0.075f});
            drawNeedle(frame, x, y, away, angle - needle);
        });
    }

private:
    static constexpr float outer = 0.44f;
    static constexpr float rest = 0.33f; ///< of a turn: where the needle and the rose all but stand still

    struct Point {
        float away;
        float angle;
        int tips;
        float tip; ///< how far the tips reach
        float valley;
    };

    /// Stained paper, the lines of bearing and of the coast.
    static Colour chart(float u, float v)
    {
        const float land = noise(2.3f * u + 9, 2.3f * v + 9, 51) * 0.62f +
                           noise(5.1f * u + 20, 5.1f * v + 20, 52) * 0.26f +
                           noise(12 * u + 40, 12 * v + 40, 53) * 0.12f;
        const float stain =
            noise(1.6f * u + 5, 1.6f * v + 5, 54) * 0.6f + noise(8 * u + 8, 8 * v + 8, 55) * 0.4f;
        const Colour paper = mix(colourOf(226, 196, 142), colourOf(240, 220, 176), stain);
        const Colour ground = mix(paper, colourOf(198, 164, 102), smoothStep(0.545f, 0.55f, land));
        const float coast = 1 - smoothStep(0.0f, 0.006f, std::fabs(land - 0.547f));
        const float shallow = 1 - smoothStep(0.0f, 0.004f, std::fabs(land - 0.515f));
        const float bearing = std::atan2(v, u) * 16 / tau;
        const float line =
            coverOf(0.0008f - std::fabs(bearing - std::round(bearing)) * std::hypot(u, v) * 0.39f);
        Colour drawn = mix(ground, faded, 0.35f * line);
        drawn = mix(drawn, faded, 0.4f * shallow);
        drawn = mix(drawn, ink, 0.7f * coast);
        return drawn * (1 - 0.22f * (u * u * 0.6f + v * v * 1.6f) * 1.4f);
    }

    /// The ring of degrees: moves on by a twelfth of a turn in a loop, after which it looks the same.
    static void drawRing(Frame& frame, int x, int y, float away, float angle)
    {
        const float plate = coverOf(outer - away);
        frame.blend(x, y, cream, 0.72f * plate);
        const auto circle = [&](float radius, float thickness) {
            frame.blend(x, y, ink, coverOf(thickness - std::fabs(away - radius)));
        };
        circle(outer, 0.0045f);
        circle(outer - 0.05f, 0.0018f);
        const float degrees = angle * 72 / tau;
        const int tick = static_cast<int>(std::lround(degrees)) % 6;
        const float inner = outer - (tick == 0 ? 0.05f : tick % 3 == 0 ? 0.034f : 0.02f);
        const float off = std::fabs(degrees - std::round(degrees)) * away * tau / 72;
        frame.blend(x, y, ink, coverOf((tick == 0 ? 0.003f : 0.0015f) - off) * coverOf(away - inner) * plate);
    }

    /// One star of the rose; the halves of each tip are light and dark.
    static void drawStar(Frame& frame, int x, int y, const Point& at)
    {
        const float slice = tau / static_cast<float>(at.tips);
        const float turned = at.angle - slice * std::round(at.angle / slice);
        const float along = at.away * std::cos(turned);
        const float beside = at.away * std::sin(turned);
        const float valleyX = at.valley * std::cos(slice / 2);
        const float valleyY = at.valley * std::sin(slice / 2);
        const float length = std::hypot(at.tip - valleyX, valleyY);
        const float inside = (valleyY * (at.tip - along) - (at.tip - valleyX) * std::fabs(beside)) / length;
        const Colour dark = at.tips == 4 ? ink : faded;
        frame.blend(x, y, ink, coverOf(inside + 0.003f));
        frame.blend(x, y, mix(cream, dark, coverOf(beside)), coverOf(inside));
    }

    static void drawNeedle(Frame& frame, int x, int y, float away, float angle)
    {
        const float along = away * std::cos(angle);
        const float beside = std::fabs(away * std::sin(angle));
        const float inside = 0.018f * (1 - std::fabs(along) / 0.33f) - beside;
        frame.blend(x, y, ink, 0.35f * smoothStep(-0.012f, 0.0f, inside)); // its shadow
        frame.blend(x, y, along > 0 ? red : colourOf(60, 66, 84), coverOf(inside));
        frame.blend(x, y, colourOf(196, 150, 70), coverOf(0.022f - away));
        frame.blend(x, y, ink, coverOf(0.008f - away));
    }

    std::vector<Colour> m_chart;
};

} // namespace

std::unique_ptr<Loop> makeCompass()
{
    return std::make_unique<Compass>();
}

} // namespace kestro::themes
