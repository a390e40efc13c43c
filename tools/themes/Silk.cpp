#include "Loop.h"
#include "Relief.h"

#include <vector>

namespace kestro::themes {

namespace {

/// Bronze cloth in slow folds.
class Silk final : public Loop {
public:
    void draw(Frame& frame, float turn) override
    {
        const float phase = tau * turn;
        for (int y = 0; y <= height; ++y)
            raiseRow(y, phase);
        for (int y = 0; y < height; ++y)
            paintRow(frame, y);
    }

private:
    static constexpr int stride = width + 1;

    void raiseRow(int y, float phase)
    {
        const float v = placeY(y);
        float* out = m_height.data() + static_cast<std::ptrdiff_t>(y) * stride;
        for (int x = 0; x < stride; ++x) {
            const float u = placeX(x);
            const float wide = quickSine(3.4f * u + 2.3f * v + 1.5f * quickSine(2.1f * v - 1.3f * u + phase));
            const float fold =
                quickSine(6.2f * u - 3.6f * v + 1.7f * quickSine(2.9f * u + 1.9f * v - phase) + 1);
            const float fine = quickSine(11 * u + 9 * v + 2.2f * quickSine(3.1f * v - 1.7f * u + phase + 2));
            out[x] = wide + 0.42f * fold + 0.13f * fine;
        }
    }

    void paintRow(Frame& frame, int y) const
    {
        constexpr Colour deep = colourOf(58, 30, 18);
        constexpr Colour bronze = colourOf(190, 120, 62);
        constexpr Colour gleam = colourOf(255, 214, 150);
        const float* here = m_height.data() + static_cast<std::ptrdiff_t>(y) * stride;
        for (int x = 0; x < width; ++x) {
            constexpr float steepness = 78;
            const Lean lean =
                leanOf((here[x + 1] - here[x]) * steepness, (here[x + stride] - here[x]) * steepness);
            const float light = lean.light * lean.light * (1.2f - 0.2f * lean.light);
            const Colour base = mix(deep, bronze, light);
            frame.set(x, y, base);
            frame.add(x, y, gleam * (0.55f * lean.gleam));
        }
    }

    std::vector<float> m_height = std::vector<float>(static_cast<std::size_t>(stride) * (height + 1));
};

} // namespace

std::unique_ptr<Loop> makeSilk()
{
    return std::make_unique<Silk>();
}

} // namespace kestro::themes
