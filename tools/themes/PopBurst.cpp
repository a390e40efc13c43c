#include "Frame.h"
#include "Loop.h"

#include <vector>

namespace kestro::themes {

namespace {

/// Rays that turn behind a screen of printed dots, and stars that rise before them.
class PopBurst final : public Loop {
public:
    PopBurst()
    {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                m_angle.push_back(std::atan2(placeY(y) - centreY, placeX(x)));
    }

    void draw(Frame& frame, float turn) override
    {
        for (int y = 0; y < height; ++y)
            paintRow(frame, y, turn);
        for (int star = 0; star < starCount; ++star)
            drawStar(frame, star, turn);
    }

private:
    static constexpr float centreY = 0.22f;
    static constexpr int rayCount = 12;
    static constexpr int starCount = 13;

    void paintRow(Frame& frame, int y, float turn) const
    {
        const float phase = tau * turn;
        const float v = placeY(y);
        for (int x = 0; x < width; ++x) {
            const float u = placeX(x);
            const float away = std::sqrt(u * u + (v - centreY) * (v - centreY));
            const float ray = quickSine(rayCount * m_angle[static_cast<std::size_t>(y * width + x)] + phase);
            const float edge = coverOf(ray * away / rayCount);
            const Colour burst = mix(mix(colourOf(255, 78, 142), colourOf(255, 132, 178), away),
                                     mix(colourOf(255, 226, 92), colourOf(255, 192, 60), away), edge);
            frame.set(x, y, burst);
            frame.blend(x, y, colourOf(38, 196, 220), dot(u, v, away, turn));
        }
    }

    /// A slanted grid of dots that moves on by one dot in a loop; the dots swell away from the middle.
    static float dot(float u, float v, float away, float turn)
    {
        constexpr float cell = 0.05f;
        const float a = (u + v) * 0.7071f / cell + turn;
        const float b = (u - v) * 0.7071f / cell;
        const float da = fraction(a) - 0.5f;
        const float db = fraction(b) - 0.5f;
        const float wave = 0.5f + 0.5f * quickSine(7 * away - tau * turn);
        const float radius = smoothStep(0.3f, 1.25f, away) * (0.42f + 0.22f * wave);
        return coverOf((radius - std::sqrt(da * da + db * db)) * cell);
    }

    static void drawStar(Frame& frame, int star, float turn)
    {
        const float size = mix(0.03f, 0.085f, chance(star, 41));
        const float risen = fraction(turn + chance(star, 42));
        const float v = (0.5f - risen) * (1 + 2.4f * size);
        const float u = (static_cast<float>(star) + 0.5f) / starCount * aspect - aspect / 2 +
                        0.03f * std::sin(tau * (turn + chance(star, 43)));
        const float angle = tau * (chance(star, 44) + (star % 2 == 0 ? turn : -turn) * 2 / 5);
        const Colour colour = star % 3 == 0 ? colourOf(255, 255, 255) : colourOf(255, 240, 130);
        around(u, v, size * 1.15f, [&](int x, int y, float dx, float dy) {
            const float distance = starDistance(dx, dy, angle, size);
            frame.blend(x, y, colourOf(70, 20, 90), coverOf(distance + 0.008f));
            frame.blend(x, y, colour, coverOf(distance));
        });
    }

    /// How far inside a five-pointed star a place is.
    static float starDistance(float dx, float dy, float angle, float size)
    {
        constexpr float slice = tau / 5;
        constexpr float inner = 0.46f;
        const float turned = std::atan2(dy, dx) - angle;
        const float folded = std::fabs(turned - slice * std::round(turned / slice)); // from the nearest tip
        const float away = std::sqrt(dx * dx + dy * dy);
        const float x = away * std::cos(folded);
        const float y = away * std::sin(folded);
        const float valleyX = inner * std::cos(slice / 2);
        const float valleyY = inner * std::sin(slice / 2);
        const float length = std::hypot(1 - valleyX, valleyY);
        return (valleyY * (size - x) - (1 - valleyX) * y) / length;
    }

    std::vector<float> m_angle;
};

} // namespace

std::unique_ptr<Loop> makePopBurst()
{
    return std::make_unique<PopBurst>();
}

} // namespace kestro::themes
