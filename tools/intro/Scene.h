#pragma once

#include "Canvas.h"
#include "Kestrel.h"
#include "Lake.h"
#include "Mist.h"
#include "Ribbons.h"
#include "Ridges.h"
#include "Sky.h"
#include "YuvFrame.h"

#include <cstdint>
#include <vector>

namespace kestro::intro {

/// The whole picture, frame by frame: first light over a lake in the hills, under ribbons of northern light.
/// Every motion in it takes a whole number of turns to the loop, so frame `frameCount` would be frame 0
/// again. Each drawing thread owns one.
class Scene final {
public:
    static constexpr int frameRate = 30;
    static constexpr int frameCount = 14 * frameRate;

    Scene();
    /// Draws frame `number` and answers its bytes (see YuvFrame), valid until the next call.
    [[nodiscard]] const std::vector<std::uint8_t>& frame(int number);

private:
    Sky m_sky;
    Ribbons m_ribbons;
    std::vector<Ridge> m_ridges;
    std::vector<Mist> m_mists; // one before each ridge
    Lake m_lake;
    Kestrel m_kestrel;
    Canvas m_canvas;
    YuvFrame m_yuv;
};

} // namespace kestro::intro
