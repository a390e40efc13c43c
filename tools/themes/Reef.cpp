#include "Frame.h"
#include "Loop.h"

namespace kestro::themes {

namespace {

/// A fish as it is at one moment; lengths in heights.
struct Fish {
    float u = 0;
    float v = 0;
    float size = 0;    ///< half of the body's length
    float heading = 1; ///< 1 to the right, -1 to the left
    float beat = 0;    ///< of the tail, radians
    Colour body;
    Colour band;
    float dim = 0; ///< 0 near … 1 lost in the blue
};

constexpr Colour water = colourOf(8, 62, 110);

/// Shafts of light in blue water, and fish that cross it.
class Reef final : public Loop {
public:
    void draw(Frame& frame, float turn) override
    {
        const float phase = tau * turn;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                frame.set(x, y, sea(placeX(x), placeY(y), phase));
        for (int number = 0; number < schoolCount; ++number)
            drawFish(frame, ofSchool(number, turn));
        for (int number = 0; number < bubbleCount; ++number)
            drawBubble(frame, number, turn);
        for (int number = 0; number < nearCount; ++number)
            drawFish(frame, ofNear(number, turn));
    }

private:
    static constexpr int schoolCount = 16;
    static constexpr int nearCount = 5;
    static constexpr int bubbleCount = 42;

    static Colour sea(float u, float v, float phase)
    {
        const float down = v + 0.5f;
        const Colour blue = mix(colourOf(44, 158, 188), colourOf(3, 26, 66), smoothStep(-0.1f, 1.1f, down));
        const float slant = (u + 0.25f) / (down + 0.55f);
        const float shafts = quickSine(5.2f * slant + phase) + quickSine(9.1f * slant - phase + 1) +
                             0.7f * quickSine(15.3f * slant + 2 * phase + 2);
        const float light = std::max(shafts * 0.34f, 0.0f) * (1 - 0.85f * down);
        const float ground = smoothStep(0.83f, 1.05f, down + 0.03f * quickSine(4 * u + 1));
        const float web = 1 - std::fabs(quickSine(17 * u + 4 * v + 1.6f * quickSine(9 * v + phase)) +
                                        quickSine(11 * u - 23 * v + 1.6f * quickSine(8 * u - phase))) /
                                  2;
        const Colour sand = mix(colourOf(22, 84, 112), colourOf(120, 186, 172), web * web * web * 0.6f);
        const Colour lit = mix(blue, colourOf(150, 226, 230), 0.5f * light);
        return mix(lit, sand, ground * 0.8f);
    }

    /// Where a swimmer is that crosses the picture `crossings` times in a loop.
    static float crossing(float turn, float start, float margin, float heading)
    {
        return heading * (fraction(turn + start) - 0.5f) * (aspect + 2 * margin);
    }

    static Fish ofSchool(int number, float turn)
    {
        const float start = 0.1f + 0.16f * chance(number, 61);
        Fish fish;
        fish.size = 0.02f + 0.007f * chance(number, 62);
        fish.heading = -1;
        fish.u = crossing(turn, start, 0.3f, fish.heading);
        fish.v = -0.2f + 0.22f * chance(number, 63) + 0.025f * std::sin(tau * (turn + start * 3));
        fish.beat = tau * (12 * turn + chance(number, 64));
        fish.body = colourOf(250, 214, 84);
        fish.band = colourOf(250, 236, 170);
        fish.dim = 0.42f;
        return fish;
    }

    static Fish ofNear(int number, float turn)
    {
        static constexpr float depths[nearCount] = {0.04f, -0.28f, 0.24f, -0.08f, 0.34f};
        static constexpr float starts[nearCount] = {0.05f, 0.3f, 0.52f, 0.68f, 0.86f};
        Fish fish;
        fish.size = 0.062f + 0.045f * chance(number, 65);
        fish.heading = number == 1 || number == 4 ? -1.0f : 1.0f;
        fish.u = crossing(turn, starts[number], 0.25f, fish.heading);
        fish.v = depths[number] + 0.03f * std::sin(tau * (2 * turn + starts[number]));
        fish.beat = tau * (7 * turn + starts[number]);
        fish.body = number % 2 == 0 ? colourOf(250, 128, 40) : colourOf(58, 112, 226);
        fish.band = number % 2 == 0 ? colourOf(255, 246, 232) : colourOf(252, 216, 70);
        fish.dim = number == 1 ? 0.25f : 0.06f;
        return fish;
    }

    static void drawFish(Frame& frame, const Fish& fish)
    {
        around(fish.u, fish.v, fish.size * 1.75f, [&](int x, int y, float dx, float dy) {
            // Along the body from -1 at the tail's root to 1 at the nose; both in half lengths.
            const float along = dx * fish.heading / fish.size;
            const float bend = 0.1f * std::sin(fish.beat + 1.8f * along) * (1 - along) * 0.5f;
            const float across = dy / fish.size - bend;
            const float inside = std::max(bodyDistance(along, across), tailDistance(along, across));
            const float cover = coverOf(std::max(inside, finDistance(along, across)) * fish.size);
            if (cover > 0) frame.blend(x, y, mix(skin(fish, along, across), water, fish.dim), cover);
        });
    }

    static float bodyDistance(float along, float across)
    {
        const float room = std::max(1 - along * along, 0.0f);
        const float half = 0.46f * std::sqrt(room) * (0.62f + 0.38f * std::sqrt(room)) * (1 + 0.18f * along);
        return std::min(half - std::fabs(across), 1 - std::fabs(along));
    }

    static float tailDistance(float along, float across)
    {
        const float back = -0.78f - along; // behind the root
        const float half = 0.1f + 0.62f * back;
        const float fork = 0.72f - 0.24f * (1 - std::min(std::fabs(across) / 0.45f, 1.0f));
        return std::min({half - std::fabs(across), back, fork - back});
    }

    static float finDistance(float along, float across)
    {
        const float arch = 0.64f - 0.55f * (along + 0.08f) * (along + 0.08f) * 2;
        return std::min({arch + across, -across - 0.2f, 0.6f - std::fabs(along + 0.08f)});
    }

    static Colour skin(const Fish& fish, float along, float across)
    {
        const auto band = [along, across](float place, float half) {
            const float off = std::fabs(along - place + 0.12f * across * across);
            return 1 - smoothStep(half, half + 0.04f, off);
        };
        const float bands = std::max({band(0.42f, 0.1f), band(-0.16f, 0.12f), band(-0.8f, 0.08f)});
        const float light = 0.86f - 0.5f * across; // from above
        Colour colour = mix(fish.body, fish.band, bands) * std::clamp(light, 0.5f, 1.15f);
        const float eyeX = along - 0.68f;
        const float eyeY = across + 0.09f;
        const float eye = std::sqrt(eyeX * eyeX + eyeY * eyeY);
        colour = mix(colourOf(250, 250, 250), colour, smoothStep(0.09f, 0.12f, eye));
        return mix(colourOf(10, 12, 20), colour, smoothStep(0.05f, 0.075f, eye));
    }

    static void drawBubble(Frame& frame, int number, float turn)
    {
        const float radius = 0.004f + 0.011f * chance(number, 71) * chance(number, 72);
        const float risen = fraction(turn * (number % 4 == 0 ? 2.0f : 1.0f) + chance(number, 73));
        const float v = (0.5f - risen) * (1 + 4 * radius);
        const float stream = static_cast<float>(number % 4) * 0.47f - 0.68f;
        const float u = stream + 0.09f * (chance(number, 74) - 0.5f) +
                        0.012f * std::sin(tau * (4 * turn + chance(number, 75)));
        around(u, v, radius * 1.3f, [&](int x, int y, float dx, float dy) {
            const float distance = std::sqrt(dx * dx + dy * dy);
            const float rim = smoothStep(0.4f, 0.9f, distance / radius);
            const float shine =
                1 - smoothStep(0.1f, 0.4f, std::hypot(dx / radius + 0.35f, dy / radius + 0.35f));
            frame.blend(x, y, colourOf(214, 246, 255),
                        coverOf(radius - distance) * (0.12f + 0.4f * rim + 0.5f * shine));
        });
    }
};

} // namespace

std::unique_ptr<Loop> makeReef()
{
    return std::make_unique<Reef>();
}

} // namespace kestro::themes
