#include "Sky.h"

#include "Maths.h"

namespace kestro::intro {

namespace {

struct Stop {
    float y;
    Light light;
};

constexpr std::array stops{
    Stop{0, lightOf(5, 9, 30)},        Stop{240, lightOf(13, 22, 62)},   Stop{430, lightOf(34, 38, 96)},
    Stop{580, lightOf(82, 62, 124)},   Stop{690, lightOf(158, 90, 126)}, Stop{760, lightOf(218, 130, 116)},
    Stop{800, lightOf(242, 176, 130)},
};
constexpr Light wideGlowLight = lightOf(206, 112, 74);
constexpr Light narrowGlowLight = lightOf(255, 190, 116);

Light gradientAt(float y)
{
    std::size_t i = 1;
    while (i + 1 < stops.size() && stops[i].y < y)
        ++i;
    const float t = smoothStep(stops[i - 1].y, stops[i].y, y) * 0.5f +
                    0.5f * (y - stops[i - 1].y) / (stops[i].y - stops[i - 1].y);
    return stops[i - 1].light + (stops[i].light - stops[i - 1].light) * t;
}

std::vector<float> bell(float middle, float reach)
{
    std::vector<float> values(width);
    for (int x = 0; x < width; ++x) {
        const float d = (static_cast<float>(x) - middle) / reach;
        values[static_cast<std::size_t>(x)] = std::exp(-d * d);
    }
    return values;
}

} // namespace

Sky::Sky()
    : m_wideGlow(bell(dawnX, 820))
    , m_narrowGlow(bell(dawnX, 330))
{
    for (int y = 0; y < shoreline; ++y)
        m_rows.push_back(gradientAt(static_cast<float>(y)));
    for (int i = 0; i < 420; ++i) {
        const float y = chance(i, 12) * chance(i, 13) * 620;
        const float bright = std::pow(chance(i, 14), 5.0f) * 0.9f + 0.05f;
        const Light tint = chance(i, 15) > 0.7f ? Light{1, 0.85f, 0.7f, 0} : Light{0.8f, 0.9f, 1, 0};
        m_stars.push_back({chance(i, 11) * width, y, 0.55f + 0.5f * bright,
                           tint * bright * (1 - smoothStep(150, 600, y)), chance(i, 16) * tau,
                           1 + std::floor(chance(i, 17) * 6)});
    }
}

void Sky::draw(Canvas& canvas, float phase) const
{
    const float breath = 1 + 0.07f * std::sin(phase);
    for (int y = 0; y < shoreline; ++y) {
        const float up = static_cast<float>(shoreline - y);
        const float wide = std::exp(-up / 190) * 0.60f * breath;
        const float narrow = std::exp(-up / 100) * 1.15f * breath;
        for (int plane = 0; plane < 3; ++plane) {
            float* out = canvas.row(plane, y);
            const float base = m_rows[static_cast<std::size_t>(y)][plane];
            const float a = wide * wideGlowLight[plane];
            const float b = narrow * narrowGlowLight[plane];
            for (int x = 0; x < width; ++x)
                out[x] = base + a * m_wideGlow[static_cast<std::size_t>(x)] +
                         b * m_narrowGlow[static_cast<std::size_t>(x)];
        }
    }
    drawStars(canvas, phase);
}

void Sky::drawStars(Canvas& canvas, float phase) const
{
    for (const Star& star : m_stars) {
        const Light light = star.light * (0.75f + 0.25f * std::sin(star.twinkle + star.rate * phase));
        const int left = static_cast<int>(star.x) - 3;
        const int top = static_cast<int>(star.y) - 3;
        for (int y = std::max(top, 0); y < top + 8; ++y) {
            for (int x = std::max(left, 0); x < std::min(left + 8, width); ++x) {
                const float dx = static_cast<float>(x) - star.x;
                const float dy = static_cast<float>(y) - star.y;
                const float weight = std::exp(-(dx * dx + dy * dy) / (star.size * star.size));
                for (int plane = 0; plane < 3; ++plane)
                    canvas.row(plane, y)[x] += light[plane] * weight;
            }
        }
    }
}

} // namespace kestro::intro
