#include "Yuv.h"

#include "Frame.h"

namespace kestro::themes {

namespace {

// BT.709
constexpr float redShare = 0.2126f;
constexpr float greenShare = 0.7152f;
constexpr float blueShare = 0.0722f;

constexpr int pixels = width * height;

std::uint8_t rounded(float value)
{
    return static_cast<std::uint8_t>(std::clamp(value + 0.5f, 1.0f, 254.0f));
}

float shown(float value)
{
    return std::clamp(value, 0.0f, 1.0f);
}

} // namespace

Yuv::Yuv()
    : m_grain(pixels)
    , m_bytes(static_cast<std::size_t>(pixels) * 3 / 2)
{
    for (int i = 0; i < pixels; ++i)
        m_grain[static_cast<std::size_t>(i)] = (chance(i, 5) - chance(i, 6)) * 0.8f;
}

const std::vector<std::uint8_t>& Yuv::take(Frame& frame)
{
    for (int y = 0; y < height; ++y) {
        takeLuma(frame, y);
        if (y % 2 == 1) takeChroma(frame, y);
    }
    return m_bytes;
}

void Yuv::takeLuma(Frame& frame, int y)
{
    const float* red = frame.row(0, y);
    const float* green = frame.row(1, y);
    const float* blue = frame.row(2, y);
    const float* grain = m_grain.data() + static_cast<std::ptrdiff_t>(y) * width;
    std::uint8_t* out = m_bytes.data() + static_cast<std::ptrdiff_t>(y) * width;
    for (int x = 0; x < width; ++x) {
        const float luma =
            redShare * shown(red[x]) + greenShare * shown(green[x]) + blueShare * shown(blue[x]);
        out[x] = rounded(16 + 219 * luma + grain[x]);
    }
}

// The two chroma values of each square of four pixels, of which `y` is the lower row.
void Yuv::takeChroma(Frame& frame, int y)
{
    std::uint8_t* out = m_bytes.data() + pixels + static_cast<std::ptrdiff_t>(y / 2) * (width / 2);
    for (int x = 0; x < width / 2; ++x) {
        const auto mean = [&frame, x, y](int plane) {
            const float* upper = frame.row(plane, y - 1) + 2 * x;
            const float* lower = frame.row(plane, y) + 2 * x;
            return (shown(upper[0]) + shown(upper[1]) + shown(lower[0]) + shown(lower[1])) / 4;
        };
        const float red = mean(0);
        const float blue = mean(2);
        const float luma = redShare * red + greenShare * mean(1) + blueShare * blue;
        out[x] = rounded(128 + 112 * (blue - luma) / (1 - blueShare));
        out[pixels / 4 + x] = rounded(128 + 112 * (red - luma) / (1 - redShare));
    }
}

} // namespace kestro::themes
