#include "Frame.h"
#include "Loop.h"

#include <array>
#include <vector>

namespace kestro::themes {

namespace {

/// A stage curtain in a moving spotlight, framed by bulbs that chase each other.
class Marquee final : public Loop {
public:
    Marquee()
    {
        for (auto& group : m_glow)
            group.resize(static_cast<std::size_t>(width) * height);
        for (int i = 0; i < columns; ++i) {
            addBulb(i, i + 0.5f, 0.5f);
            addBulb(columns + rows + i, columns - i - 0.5f, rows + 1.5f);
        }
        for (int i = 0; i < rows; ++i) {
            addBulb(columns + i, columns - 0.5f, i + 1.5f);
            addBulb(2 * columns + rows + i, 0.5f, rows - i + 0.5f);
        }
    }

    void draw(Frame& frame, float turn) override
    {
        const float phase = tau * turn;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                frame.set(x, y, curtain(placeX(x), placeY(y), phase));
        for (int group = 0; group < groupCount; ++group)
            light(frame, group, phase);
    }

private:
    // So many in all that the chase runs on around the corner where it began.
    static constexpr int groupCount = 3;
    static constexpr int columns = 32;
    static constexpr int rows = 16;
    static_assert((columns + rows) * 2 % groupCount == 0);
    static constexpr float spacing = static_cast<float>(width) / columns / height;

    void addBulb(int number, float column, float row)
    {
        auto& glow = m_glow[static_cast<std::size_t>(number % groupCount)];
        const float u = column * spacing - aspect / 2;
        const float v = row * spacing - 0.5f;
        around(u, v, 0.15f, [&glow](int x, int y, float dx, float dy) {
            const float distance = std::sqrt(dx * dx + dy * dy);
            const float bulb = coverOf(0.0125f - distance);
            const float halo = std::max(1 - distance / 0.15f, 0.0f);
            glow[static_cast<std::size_t>(y * width + x)] += bulb * 1.1f + 0.24f * halo * halo * halo * halo +
                                                             0.2f * std::exp(-distance * distance * 2600);
        });
    }

    static Colour curtain(float u, float v, float phase)
    {
        const float sway = 0.035f * quickSine(2.3f * v + 3 * u + phase) * (v + 0.6f);
        const float fold = quickSine(58 * (u + sway)) * 0.6f + quickSine(23 * (u + sway) + 1) * 0.4f;
        const float spotU = 0.42f * quickSine(phase);
        const float spotV = 0.05f + 0.1f * quickSine(2 * phase);
        const float away = (u - spotU) * (u - spotU) * 5.2f + (v - spotV) * (v - spotV) * 8;
        const float spot = std::max(1 - away, 0.0f);
        const Colour cloth = mix(colourOf(46, 0, 8), colourOf(166, 14, 26), 0.5f + 0.5f * fold);
        return cloth * (0.62f + 0.85f * spot * (0.35f + 0.65f * spot));
    }

    void light(Frame& frame, int group, float phase) const
    {
        constexpr Colour bulb = colourOf(255, 206, 120);
        constexpr int chases = 6;
        const float wave =
            0.5f + 0.5f * std::cos(chases * phase - tau * static_cast<float>(group) / groupCount);
        const float brightness = 0.16f + 0.84f * wave * wave;
        const float* glow = m_glow[static_cast<std::size_t>(group)].data();
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                frame.add(x, y, bulb * (brightness * glow[y * width + x]));
    }

    std::array<std::vector<float>, groupCount> m_glow;
};

} // namespace

std::unique_ptr<Loop> makeMarquee()
{
    return std::make_unique<Marquee>();
}

} // namespace kestro::themes
