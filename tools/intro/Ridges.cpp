#include "Ridges.h"

#include "Maths.h"

namespace kestro::intro {

namespace {

constexpr Light dawnLight{0.62f, 0.24f, 0.10f, 0};

} // namespace

Ridge::Ridge(const Look& look)
    : m_look(look)
    , m_first(width)
    , m_steepness(width)
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

void Ridge::draw(Canvas& canvas, float phase)
{
    moveTo(m_look.shift * std::sin(phase));
    for (int y = static_cast<int>(m_highest) - 1; y < shoreline; ++y) {
        const float at = static_cast<float>(y);
        const float sunk = std::clamp((at - m_highest) / (shoreline - m_highest), 0.0f, 1.0f);
        const float haze = sunk * sunk * (1.6f - 0.6f * sunk);
        const Light base = m_look.top + (m_look.foot - m_look.top) * haze;
        const Light warm = dawnLight * (0.35f + 0.65f * haze);
        for (int plane = 0; plane < 3; ++plane) {
            float* out = canvas.row(plane, y);
            const float dark = base[plane];
            const float bright = warm[plane];
            for (std::size_t x = 0; x < width; ++x) {
                const float cover = std::clamp((at - m_first[x]) * m_steepness[x], 0.0f, 1.0f);
                out[x] = mix(out[x], dark + bright * m_dawn[x], cover);
            }
        }
    }
}

void Ridge::moveTo(float offset)
{
    const float start = (margin + offset) * fine;
    const int whole = static_cast<int>(start);
    const float part = start - static_cast<float>(whole);
    const float* crest = m_crest.data() + whole;
    for (std::size_t x = 0; x < width; ++x, crest += fine) {
        float first = height;
        float last = 0;
        for (int i = 0; i < fine; ++i) {
            const float y = mix(crest[i], crest[i + 1], part);
            first = std::min(first, y);
            last = std::max(last, y);
        }
        m_first[x] = first - 0.5f;
        m_steepness[x] = 1 / (last - first + 1);
    }
}

std::vector<Ridge> makeRidges()
{
    std::vector<Ridge> ridges;
    ridges.emplace_back(
        Ridge::Look{612, 185, 560, 0, 3, lightOf(46, 42, 102), lightOf(206, 130, 134), 0.50f, 108});
    ridges.emplace_back(
        Ridge::Look{672, 140, 460, 0, 6, lightOf(48, 44, 102), lightOf(186, 116, 132), 0.38f, 205});
    ridges.emplace_back(
        Ridge::Look{722, 105, 430, 0, 11, lightOf(44, 42, 94), lightOf(144, 94, 124), 0.18f, 309});
    ridges.emplace_back(
        Ridge::Look{758, 74, 410, 11, 19, lightOf(26, 30, 70), lightOf(84, 64, 102), 0.06f, 417});
    ridges.emplace_back(
        Ridge::Look{786, 42, 560, 30, 30, lightOf(10, 14, 36), lightOf(26, 26, 52), 0.0f, 523});
    return ridges;
}

} // namespace kestro::intro
