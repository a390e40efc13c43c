#include "Frame.h"
#include "Loop.h"

namespace kestro::themes {

namespace {

/// Paper that falls, sways and flutters.
class Confetti final : public Loop {
public:
    void draw(Frame& frame, float turn) override
    {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                frame.set(x, y, room(placeX(x), placeY(y)));
        for (int piece = 0; piece < pieceCount; ++piece)
            drawPiece(frame, piece, turn);
    }

private:
    static constexpr int pieceCount = 190;

    static Colour room(float u, float v)
    {
        const float light = std::max(1 - 0.8f * u * u - 1.6f * (v + 0.25f) * (v + 0.25f), 0.0f);
        return mix(colourOf(34, 12, 66), colourOf(128, 52, 150), light);
    }

    static Colour paper(int piece)
    {
        static constexpr Colour colours[] = {colourOf(255, 206, 64),  colourOf(255, 92, 122),
                                             colourOf(72, 214, 200),  colourOf(250, 250, 250),
                                             colourOf(110, 150, 255), colourOf(255, 140, 60)};
        return colours[piece % 6];
    }

    /// Pieces further back are smaller, darker, and fall once in a loop where those in front fall twice.
    static void drawPiece(Frame& frame, int piece, float turn)
    {
        const float phase = tau * turn;
        const float start = tau * chance(piece, 31);
        const float near = static_cast<float>(piece) / pieceCount;
        const int falls = near > 0.72f ? 2 : 1;
        const float size = mix(0.009f, 0.026f, near * near);
        const float fallen = fraction(static_cast<float>(falls) * turn + chance(piece, 32));
        const float v = (fallen - 0.5f) * (1 + 6 * size);
        const float sway = 0.05f * std::sin(2 * phase + start) + 0.02f * std::sin(5 * phase + 2 * start);
        const float u = (chance(piece, 33) - 0.5f) * (aspect + 0.1f) + sway;
        const float flips = piece % 2 == 0 ? 4 : -5;
        const float flip = std::sin(flips * phase + 3 * start); // its broad side to us, or its edge
        const float angle = start + (piece % 3 == 0 ? -2.0f : 1.0f) * phase + 0.5f * std::sin(phase + start);
        const float halfHeight = size * 0.62f * (0.12f + 0.88f * std::fabs(flip));
        const float shade = mix(0.55f, 1.0f, near) * (0.78f + 0.22f * flip);
        const Colour colour = paper(piece) * shade;
        const float cosine = std::cos(angle);
        const float sine = std::sin(angle);
        around(u, v, size * 1.3f, [&](int x, int y, float dx, float dy) {
            const float along = std::fabs(dx * cosine + dy * sine);
            const float across = std::fabs(dy * cosine - dx * sine);
            frame.blend(x, y, colour, coverOf(size - along) * coverOf(halfHeight - across));
        });
    }
};

} // namespace

std::unique_ptr<Loop> makeConfetti()
{
    return std::make_unique<Confetti>();
}

} // namespace kestro::themes
