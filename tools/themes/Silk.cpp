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
            // Across the folds, which hang aslant, and along them.
            const float along = 0.9f * v - 0.44f * u;
            const float across = 0.9f * u + 0.44f * v + 0.16f * quickSine(2.6f * along + phase) +
                                 0.09f * quickSine(4.3f * along - 1.9f * u - phase + 1);
            const float wide = quickSine(5.6f * across + 0.9f * quickSine(1.7f * along - phase));
            const float fold =
                quickSine(12.7f * across + 1.5f * quickSine(2.3f * along + phase + 2) + 1.2f * wide);
            const float fine = quickSine(24 * across + 2.1f * quickSine(3.7f * along - phase) + 1.6f * fold);
            out[x] = wide + 0.36f * fold + 0.07f * fine;
        }
    }

    void paintRow(Frame& frame, int y) const
    {
        constexpr Colour deep = colourOf(58, 30, 18);
        constexpr Colour bronze = colourOf(190, 120, 62);
        constexpr Colour gleam = colourOf(255, 214, 150);
        const float* here = m_height.data() + static_cast<std::ptrdiff_t>(y) * stride;
        for (int x = 0; x < width; ++x) {
            constexpr float steepness = 74;
            const Lean lean =
                leanOf((here[x + 1] - here[x]) * steepness, (here[x + stride] - here[x]) * steepness);
            const float light = lean.light * lean.light * (1.2f - 0.2f * lean.light);
            const float fill = std::max(0.5f * lean.x + 0.4f * lean.y, 0.0f); // a fainter light opposite
            const Colour base = mix(deep, bronze, std::min(light + 0.34f * fill * fill, 1.0f));
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
