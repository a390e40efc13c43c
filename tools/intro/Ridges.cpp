#include "Ridges.h"

#include "Maths.h"

namespace kestro::intro {

Ridge::Ridge(const Look& look)
    : m_look(look)
{
    const int count = (width + 2 * margin) * fine;
    for (int i = 0; i < count; ++i)
        m_crest.push_back(crestAt(static_cast<float>(i) / fine));
    m_highest = *std::min_element(m_crest.begin(), m_crest.end());
    for (int x = 0; x < width; ++x) {
        const float d = (static_cast<float>(x) - dawnX) / 560;
        m_dawn.push_back(look.dawn * std::exp(-d * d));
    }
}

float Ridge::crestAt(float x) const
{
    float sum = 0;
    float weight = 1;
    float length = m_look.peakWidth;
    for (std::uint32_t octave = 0; octave < 7; ++octave) {
        const float n = noise(x / length + 3.7f * static_cast<float>(octave), m_look.seed + octave);
        const float peak = 1 - std::fabs(2 * n - 1);
        sum += weight * mix(n, peak * peak, octave < 2 ? 0.75f : 0.35f);
        weight *= 0.44f;
        length *= 0.47f;
    }
    return m_look.crest - m_look.rise * (sum - 0.75f) - treesAt(x);
}

float Ridge::treesAt(float x) const
{
    if (m_look.trees <= 0) return 0;
    float tallest = 0;
    const float spacing = m_look.trees * 0.34f;
    const int middle = static_cast<int>(x / spacing);
    for (int i = middle - 2; i <= middle + 2; ++i) {
        const float at = (static_cast<float>(i) + chance(i, m_look.seed + 40)) * spacing;
        const float grove = smoothStep(0.25f, 0.6f, noise(at / 170, m_look.seed + 42));
        const float tall =
            m_look.trees * (0.25f + 0.75f * chance(i, m_look.seed + 41)) * (0.25f + 0.75f * grove);
        const float reach = tall * 0.26f;
        const float d = std::fabs(x - at) / reach;
        const float boughs = 0.12f * std::fabs(std::sin((x - at) * 2.1f)) * d;
        tallest = std::max(tallest, tall * (1 - std::pow(d, 0.85f) - boughs));
    }
    return tallest;
}

void Ridge::draw(Canvas& canvas, float phase) const
{
    const float offset = (margin + m_look.shift * std::sin(phase)) * fine;
    const int whole = static_cast<int>(offset);
    const float part = offset - static_cast<float>(whole);
    const float* crest = m_crest.data() + whole;
    const float depth = shoreline - m_highest;
    for (int y = static_cast<int>(m_highest) - 1; y < shoreline; ++y) {
        const float at = static_cast<float>(y);
        const float haze = smoothStep(m_highest, m_highest + depth, at);
        const Light base = m_look.top + (m_look.foot - m_look.top) * haze;
        for (int x = 0; x < width; ++x) {
            const float* h = crest + x * fine;
            float cover = 0;
            for (int i = 0; i < fine; ++i)
                cover += std::clamp(at - mix(h[i], h[i + 1], part) + 0.5f, 0.0f, 1.0f);
            cover *= 1.0f / fine;
            const float warm = m_dawn[static_cast<std::size_t>(x)] * (0.35f + 0.65f * haze);
            float* red = canvas.row(0, y) + x;
            float* green = canvas.row(1, y) + x;
            float* blue = canvas.row(2, y) + x;
            *red = mix(*red, base[0] + 0.62f * warm, cover);
            *green = mix(*green, base[1] + 0.24f * warm, cover);
            *blue = mix(*blue, base[2] + 0.10f * warm, cover);
        }
    }
}

std::vector<Ridge> makeRidges()
{
    std::vector<Ridge> ridges;
    ridges.emplace_back(
        Ridge::Look{660, 120, 620, 0, 3, lightOf(104, 76, 132), lightOf(206, 134, 134), 0.42f, 101});
    ridges.emplace_back(
        Ridge::Look{700, 105, 520, 0, 6, lightOf(74, 60, 116), lightOf(176, 112, 132), 0.26f, 205});
    ridges.emplace_back(
        Ridge::Look{740, 92, 450, 0, 11, lightOf(46, 44, 92), lightOf(126, 84, 118), 0.15f, 309});
    ridges.emplace_back(
        Ridge::Look{772, 66, 390, 12, 19, lightOf(26, 30, 66), lightOf(74, 58, 94), 0.05f, 417});
    ridges.emplace_back(
        Ridge::Look{797, 34, 520, 34, 30, lightOf(9, 13, 32), lightOf(20, 22, 44), 0.0f, 523});
    return ridges;
}

} // namespace kestro::intro
