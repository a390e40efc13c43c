#include "Ribbons.h"

#include "Maths.h"

namespace kestro::intro {

namespace {

constexpr int threadCount = 720;
constexpr float rayLength = 0.978f; // of a ray's light, how much the pixel above still has
constexpr float rayShare = 0.022f;

} // namespace

Ribbons::Ribbons()
    : m_ribbons{
          {250, 58, 250, 0.34f, 0.85f, 0.4f, 1, 1.00f, lightOf(70, 120, 255), lightOf(40, 255, 190), {}},
          {330, 72, 210, 0.42f, 1.10f, 2.9f, -1, 0.80f, lightOf(150, 90, 255), lightOf(60, 190, 255), {}},
          {175, 44, 170, 0.38f, 0.70f, 4.6f, 1, 0.55f, lightOf(190, 80, 235), lightOf(90, 130, 255), {}},
          {430, 50, 130, 0.46f, 0.95f, 1.7f, -1, 0.42f, lightOf(255, 110, 170), lightOf(255, 180, 140), {}},
      }
    , m_columns(static_cast<std::size_t>(width) * rows)
{
    for (Ribbon& ribbon : m_ribbons)
        spin(ribbon);
}

void Ribbons::spin(Ribbon& ribbon)
{
    for (int i = 0; i < threadCount; ++i) {
        const float s = (static_cast<float>(i) + 0.5f) / threadCount;
        const auto seed = static_cast<std::uint32_t>(ribbon.middle);
        const float silk = 0.45f + 0.75f * noise(s * 26, seed) + 0.35f * noise(s * 90, seed + 1);
        const float edge = smoothStep(0, 0.22f, s) * smoothStep(1, 0.7f, s);
        ribbon.threads.push_back((ribbon.upper + (ribbon.lower - ribbon.upper) * s) *
                                 (silk * edge * ribbon.bright));
    }
}

void Ribbons::draw(Canvas& canvas, float phase)
{
    std::fill(m_columns.begin(), m_columns.end(), Light{});
    for (const Ribbon& ribbon : m_ribbons)
        for (int x = 0; x < width; ++x)
            drawColumn(ribbon, x, phase);
    raiseRays();
    addTo(canvas);
}

void Ribbons::drawColumn(const Ribbon& ribbon, int x, float phase)
{
    const float u = static_cast<float>(x) / width * tau;
    const float run = ribbon.turn * phase;
    const float a = ribbon.start;
    const float y0 = ribbon.middle +
                     ribbon.sway * (std::sin(0.8f * u + a - run) + 0.5f * std::sin(1.45f * u + 2 * a + run) +
                                    0.16f * std::sin(3.1f * u - a - 2 * run));
    const float breadth = ribbon.breadth * (0.72f + 0.28f * std::sin(0.9f * u + 3 * a + run));
    const float turn = 1.25f * u + a + 1.3f * std::sin(0.62f * u + a - run) + 0.5f * std::sin(1.7f * u + run);
    const float glow = (0.55f + 0.45f * std::sin(0.75f * u + 2.2f * a - run)) *
                       (0.85f + 0.15f * std::sin(5.3f * u + a - 2 * run)) * 60.0f / threadCount;

    // The fold's sine along the threads, turned by one step from thread to thread.
    const float step = tau * ribbon.folds / threadCount;
    const float cosStep = std::cos(step);
    const float sinStep = std::sin(step);
    float sine = std::sin(turn);
    float cosine = std::cos(turn);
    Light* out = column(x);
    for (int i = 0; i < threadCount; ++i) {
        const float s = (static_cast<float>(i) + 0.5f) / threadCount - 0.5f;
        const float y = y0 + breadth * (s + ribbon.fold * sine);
        if (y >= 0 && y < rows - 1) {
            const int top = static_cast<int>(y);
            const float below = y - static_cast<float>(top);
            const Light light = ribbon.threads[static_cast<std::size_t>(i)] * glow;
            out[top] += light * (1 - below);
            out[top + 1] += light * below;
        }
        const float next = sine * cosStep + cosine * sinStep;
        cosine = cosine * cosStep - sine * sinStep;
        sine = next;
    }
}

void Ribbons::raiseRays()
{
    for (int x = 0; x < width; ++x) {
        Light* light = column(x);
        Light ray{};
        for (int y = rows - 1; y >= 0; --y) {
            ray = ray * rayLength + light[y];
            light[y] = light[y] * 0.55f + ray * (rayShare * 1.25f);
        }
    }
}

void Ribbons::addTo(Canvas& canvas) const
{
    constexpr int block = 8;
    for (int left = 0; left < width; left += block) {
        for (int y = 0; y < rows; ++y) {
            const float fade = 1 - smoothStep(420, rows, static_cast<float>(y));
            float* red = canvas.row(0, y) + left;
            float* green = canvas.row(1, y) + left;
            float* blue = canvas.row(2, y) + left;
            for (int i = 0; i < block; ++i) {
                const Light light = column(left + i)[y] * fade;
                red[i] += light[0];
                green[i] += light[1];
                blue[i] += light[2];
            }
        }
    }
}

} // namespace kestro::intro
