#include "YuvFrame.h"

#include "Maths.h"

namespace kestro::intro {

namespace {

constexpr int grainSize = 1 << 16;
constexpr float lumaGrain = 1.5f; // of one 8-bit step, to each side
constexpr float chromaGrain = 0.9f;
// BT.709
constexpr float redShare = 0.2126f, greenShare = 0.7152f, blueShare = 0.0722f;

std::uint8_t rounded(float value)
{
    return static_cast<std::uint8_t>(std::clamp(value + 0.5f, 1.0f, 254.0f));
}

} // namespace

YuvFrame::YuvFrame()
    : m_grain(grainSize + width)
    , m_bytes(static_cast<std::size_t>(width) * height * 3 / 2)
{
    for (int i = 0; i < grainSize + width; ++i)
        m_grain[static_cast<std::size_t>(i)] = chance(i, 71) - chance(i, 72);
    for (int x = 0; x < width; ++x) {
        const float d = (static_cast<float>(x) + 0.5f) / width - 0.5f;
        m_vignette.push_back(1 - 0.9f * d * d);
    }
}

void YuvFrame::take(Canvas& canvas, int number)
{
    for (int y = 0; y < height; ++y) {
        grade(canvas, y);
        takeLuma(canvas, y, number);
        if (y % 2 == 1) takeChroma(canvas, y, number);
    }
}

void YuvFrame::grade(Canvas& canvas, int y) const
{
    const float d = (static_cast<float>(y) + 0.5f) / height - 0.5f;
    const float rowShade = 1 - 0.5f * d * d;
    for (int plane = 0; plane < 3; ++plane) {
        float* light = canvas.row(plane, y);
        for (int x = 0; x < width; ++x) {
            // Highlights bend over softly instead of clipping; then from light to picture values.
            const float v = std::max(light[x] * rowShade * m_vignette[static_cast<std::size_t>(x)], 0.0f);
            light[x] = std::sqrt(v * (1 + 0.3f * v) / (1 + 0.45f * v));
        }
    }
}

const float* YuvFrame::grainFor(int y, int number) const
{
    return m_grain.data() + hashOf(static_cast<std::uint32_t>(number * 2048 + y)) % grainSize;
}

void YuvFrame::takeLuma(const Canvas& canvas, int y, int number)
{
    const float* red = canvas.row(0, y);
    const float* green = canvas.row(1, y);
    const float* blue = canvas.row(2, y);
    const float* grain = grainFor(y, number);
    std::uint8_t* out = m_bytes.data() + static_cast<std::ptrdiff_t>(y) * width;
    for (int x = 0; x < width; ++x) {
        const float luma = redShare * red[x] + greenShare * green[x] + blueShare * blue[x];
        out[x] = rounded(16 + 219 * luma + lumaGrain * grain[x]);
    }
}

void YuvFrame::takeChroma(const Canvas& canvas, int y, int number)
{
    const float* grain = grainFor(y + height, number);
    std::uint8_t* u = m_bytes.data() + static_cast<std::ptrdiff_t>(width) * height +
                      static_cast<std::ptrdiff_t>(y / 2) * (width / 2);
    std::uint8_t* v = u + width * height / 4;
    for (int x = 0; x < width / 2; ++x) {
        const auto mean = [&](int plane) {
            const float* above = canvas.row(plane, y - 1) + 2 * x;
            const float* here = canvas.row(plane, y) + 2 * x;
            return 0.25f * (above[0] + above[1] + here[0] + here[1]);
        };
        const float red = mean(0), green = mean(1), blue = mean(2);
        const float luma = redShare * red + greenShare * green + blueShare * blue;
        u[x] = rounded(128 + 112 * (blue - luma) / (1 - blueShare) + chromaGrain * grain[x]);
        v[x] = rounded(128 + 112 * (red - luma) / (1 - redShare) + chromaGrain * grain[x + width / 2]);
    }
}

} // namespace kestro::intro
