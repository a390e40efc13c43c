#include "Frame.h"
#include "Loop.h"

namespace kestro::themes {

namespace {

/// Lights of a town at night, far out of focus.
class Bokeh final : public Loop {
public:
    void draw(Frame& frame, float turn) override
    {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                frame.set(x, y, night(placeX(x), placeY(y)));
        for (int light = 0; light < lightCount; ++light)
            drawLight(frame, light, tau * turn);
    }

private:
    static constexpr int lightCount = 74;

    static Colour night(float u, float v)
    {
        const float glow = std::max(1 - u * u * 0.7f - (v - 0.4f) * (v - 0.4f) * 2.2f, 0.0f);
        return mix(colourOf(8, 8, 22), colourOf(58, 26, 52), glow * glow);
    }

    static Colour colourOfLight(int light)
    {
        static constexpr Colour colours[] = {colourOf(255, 176, 92), colourOf(255, 120, 96),
                                             colourOf(255, 214, 150), colourOf(112, 190, 255),
                                             colourOf(240, 110, 190)};
        return colours[static_cast<int>(chance(light, 21) * 4.999f)];
    }

    static void drawLight(Frame& frame, int light, float phase)
    {
        const float start = tau * chance(light, 22);
        const float way = chance(light, 23) < 0.5f ? -1.0f : 1.0f;
        const float u = (chance(light, 24) - 0.5f) * 2 + 0.07f * std::sin(way * phase + start);
        const float v = (chance(light, 25) - 0.5f) * 1.1f + 0.05f * std::sin(phase + 2 * start);
        const float radius = 0.018f + 0.13f * chance(light, 26) * chance(light, 27);
        const float pulse = 0.62f + 0.38f * std::sin((light % 3 == 0 ? 2 : 1) * phase + 3 * start);
        const Colour colour = colourOfLight(light) * (0.42f * pulse);
        around(u, v, radius * 1.2f, [&](int x, int y, float dx, float dy) {
            const float distance = std::sqrt(dx * dx + dy * dy) / radius;
            const float disc = 1 - smoothStep(0.93f, 1.03f, distance);
            const float rim = smoothStep(0.55f, 0.97f, distance) * disc; // a lens throws more light there
            frame.add(x, y, colour * (disc * 0.75f + rim * 0.6f));
        });
    }
};

} // namespace

std::unique_ptr<Loop> makeBokeh()
{
    return std::make_unique<Bokeh>();
}

} // namespace kestro::themes
