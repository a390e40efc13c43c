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

/// Shafts of light in blue water over a sandy ground, weed that sways, and fish that cross it.
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
        for (int number = 0; number < weedCount; ++number)
            drawWeed(frame, number, phase);
        for (int number = 0; number < bubbleCount; ++number)
            drawBubble(frame, number, turn);
        for (int number = 0; number < nearCount; ++number)
            drawFish(frame, ofNear(number, turn));
    }

private:
    static constexpr int schoolCount = 16;
    static constexpr int nearCount = 5;
    static constexpr int bubbleCount = 42;
    static constexpr int weedCount = 22;

    static Colour sea(float u, float v, float phase)
    {
        const float down = v + 0.5f;
        const Colour blue = mix(colourOf(44, 158, 188), colourOf(3, 26, 66), smoothStep(-0.1f, 1.1f, down));
        const float slant = (u + 0.25f) / (down + 0.55f);
        const float shafts = quickSine(5.2f * slant + phase) + quickSine(9.1f * slant - phase + 1) +
                             0.7f * quickSine(15.3f * slant + 2 * phase + 2);
        const float light = std::max(shafts * 0.34f, 0.0f) * (1 - 0.85f * down);
        const Colour lit = mix(blue, colourOf(150, 226, 230), 0.5f * light);
        const float near =
            down - 0.82f - 0.022f * quickSine(3.1f * u + 0.6f) - 0.01f * quickSine(8.3f * u + 2);
        return near > 0 ? mix(lit, ground(u, near, phase), smoothStep(0.0f, 0.07f, near)) : lit;
    }

    /// The sand, `near` below its far edge, and the web of light that the waves throw on it.
    static Colour ground(float u, float near, float phase)
    {
        const float away = 1 / (0.12f + 1.6f * near); // as it is seen aslant
        const float across = 1.5f * u * away;
        const float back = 2.2f * away;
        const float ripple = 0.5f + 0.5f * quickSine(9 * back + 1.4f * quickSine(1.3f * across + 1));
        const float web =
            1 - std::fabs(quickSine(2.9f * across + 1.5f * quickSine(1.9f * back + phase)) +
                          quickSine(3.7f * back + 1.7f * quickSine(1.6f * across - phase) + 1)) /
                    2;
        const float close = smoothStep(0.0f, 0.2f, near);
        const Colour sand = mix(colourOf(10, 58, 96), colourOf(112, 138, 128), 0.75f * close);
        const Colour shaded = sand * (0.92f + 0.12f * ripple * close);
        return mix(shaded, colourOf(196, 234, 214), web * web * web * web * (0.12f + 0.33f * close));
    }

    /// A blade of weed at either side, from its root up; the water moves it more the higher it is.
    static void drawWeed(Frame& frame, int number, float phase)
    {
        const float side = number % 2 == 0 ? -1.0f : 1.0f;
        const float root = side * (0.9f - 0.42f * chance(number, 81) * chance(number, 82));
        const float tall = 0.16f + 0.3f * chance(number, 83) * std::fabs(root);
        const float foot = 0.42f + 0.1f * chance(number, 84);
        const float start = tau * chance(number, 85);
        const Colour colour = mix(colourOf(8, 66, 74), colourOf(36, 122, 84), chance(number, 86));
        const auto first = static_cast<int>((foot - tall + 0.5f) * height);
        for (int y = std::max(first, 0); y < std::min(static_cast<int>((foot + 0.5f) * height), height);
             ++y) {
            const float up = (foot - placeY(y)) / tall;
            const float sway =
                0.035f * std::sin(phase + start + 2.2f * up) + 0.012f * std::sin(2 * phase - start + 5 * up);
            const float middle = root + up * up * sway - side * 0.03f * up;
            const float half = 0.0105f * (1 - up * up * up) * (0.72f + 0.28f * std::sin(26 * up + start));
            const Colour lit = mix(colour * 0.6f, colour, up);
            around(middle, placeY(y), half + 1.0f / height, [&](int x, int row, float dx, float) {
                if (row != y) return;
                const float shine = 1 + 0.25f * dx / std::max(half, 0.001f);
                frame.blend(x, y, mix(lit * shine, water, 0.15f), coverOf(half - std::fabs(dx)));
            });
        }
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

    /// Half the body's height there.
    static float bodyHalf(float along)
    {
        const float room = std::sqrt(std::max(1 - along * along, 0.0f));
        return 0.44f * room * std::sqrt(room) * (1 + 0.16f * along);
    }

    static float bodyDistance(float along, float across)
    {
        return std::min(bodyHalf(along) - std::fabs(across), 1 - std::fabs(along));
    }

    static float tailDistance(float along, float across)
    {
        const float back = -0.78f - along; // behind the root
        const float half = 0.1f + 0.62f * back;
        const float fork = 0.72f - 0.24f * (1 - std::min(std::fabs(across) / 0.45f, 1.0f));
        return std::min({half - std::fabs(across), back, fork - back});
    }

    /// The fin on the back, steep in front, and the smaller one below.
    static float finDistance(float along, float across)
    {
        const auto rise = [along](float front, float back, float reach) {
            const float way = std::clamp((front - along) / (front - back), 0.0f, 1.0f);
            return reach * std::sqrt(way) * (1 - way) * 2.6f;
        };
        const float above = bodyHalf(along) + rise(0.5f, -0.72f, 0.17f) + across;
        const float below = bodyHalf(along) + rise(-0.1f, -0.66f, 0.12f) - across;
        return across < 0 ? std::min(above, 1 - std::fabs(along)) : std::min(below, 1 - std::fabs(along));
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
        const float beyond = std::fabs(across) - bodyHalf(along);
        const float rays = 0.74f + 0.1f * quickSine(42 * along + 9 * across);
        colour = mix(colour, fish.body * rays, along > -0.8f ? smoothStep(-0.02f, 0.02f, beyond) : 0.0f);
        const float side =
            std::hypot((along - 0.16f) / 0.16f, (across - 0.1f - 0.3f * (0.2f - along)) / 0.09f);
        colour =
            mix(fish.body * (0.7f + 0.08f * quickSine(50 * across)), colour, smoothStep(0.85f, 1.0f, side));
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
