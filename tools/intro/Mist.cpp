#include "Mist.h"

#include "Maths.h"

namespace kestro::intro {

Mist::Mist(const Look& look)
    : m_look(look)
    , m_top(static_cast<int>(look.middle - look.reach))
    , m_rows(static_cast<int>(2 * look.reach) / scale)
    , m_columns(width / scale)
    , m_cloudColumns(m_columns + 2 * static_cast<int>(std::fabs(look.drift)) / scale + 4)
{
    for (int j = 0; j <= m_rows; ++j) {
        const float v = 2 * static_cast<float>(j) / static_cast<float>(m_rows) - 1;
        const float band = smoothStep(1, 0, std::fabs(v));
        for (int i = 0; i < m_cloudColumns; ++i) {
            const float x = static_cast<float>(i) / 64;
            const float y = static_cast<float>(j) / 11;
            const float cloud = 0.55f * noise(x, y, look.seed) +
                                0.28f * noise(2.1f * x, 2.3f * y, look.seed + 1) +
                                0.17f * noise(4.3f * x, 4.9f * y, look.seed + 2);
            m_clouds.push_back(look.density * band * smoothStep(0.22f, 0.78f, cloud));
        }
    }
    m_cover.resize(static_cast<std::size_t>((m_columns + 1) * (m_rows + 1)));
}

void Mist::draw(Canvas& canvas, float phase)
{
    mixClouds(phase);
    const int bottom = std::min(m_top + m_rows * scale, shoreline);
    for (int y = m_top; y < bottom; ++y)
        drawRow(canvas, y);
}

void Mist::mixClouds(float phase)
{
    const float drift = m_look.drift / scale;
    const float t = phase / tau;
    const float shiftA = std::fabs(drift) + drift * t;
    const float shiftB = std::fabs(drift) + drift * (t - 1);
    const float weight = 1 - smoothStep(0, 1, t);
    // Where two unlike pictures mix, they grow flat: the mix is drawn apart again around its mean.
    const float contrast = 1 / std::sqrt(weight * weight + (1 - weight) * (1 - weight));
    const auto sample = [](const float* row, float at) {
        const int i = static_cast<int>(at);
        return mix(row[i], row[i + 1], at - static_cast<float>(i));
    };
    for (int j = 0; j <= m_rows; ++j) {
        const float* row = m_clouds.data() + static_cast<std::ptrdiff_t>(j) * m_cloudColumns;
        float* out = m_cover.data() + static_cast<std::ptrdiff_t>(j) * (m_columns + 1);
        for (int i = 0; i <= m_columns; ++i) {
            const float x = static_cast<float>(i);
            const float cover = weight * sample(row, x + shiftA) + (1 - weight) * sample(row, x + shiftB);
            out[i] = cover * mix(1, contrast, 0.5f);
        }
    }
}

void Mist::drawRow(Canvas& canvas, int y) const
{
    const int j = (y - m_top) / scale;
    const float down = static_cast<float>((y - m_top) % scale) / scale;
    const float* above = m_cover.data() + static_cast<std::ptrdiff_t>(j) * (m_columns + 1);
    const float* below = above + m_columns + 1;
    for (int plane = 0; plane < 3; ++plane) {
        float* out = canvas.row(plane, y);
        const float light = m_look.light[plane];
        for (int i = 0; i < m_columns; ++i) {
            const float left = mix(above[i], below[i], down);
            const float right = mix(above[i + 1], below[i + 1], down);
            for (int k = 0; k < scale; ++k)
                out[i * scale + k] =
                    mix(out[i * scale + k], light, mix(left, right, static_cast<float>(k) / scale));
        }
    }
}

} // namespace kestro::intro
