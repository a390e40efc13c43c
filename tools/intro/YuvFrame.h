#pragma once

#include "Canvas.h"

#include <cstdint>
#include <vector>

namespace kestro::intro {

/// One frame as the encoder takes it: 8-bit planes Y, U, V (4:2:0, BT.709, video range). A fine grain is
/// added before rounding, so that the dark gradients do not show bands.
class YuvFrame final {
public:
    YuvFrame();
    /// Converts `canvas`; `number` chooses the grain.
    void take(Canvas& canvas, int number);
    [[nodiscard]] const std::vector<std::uint8_t>& bytes() const { return m_bytes; }

private:
    void grade(Canvas& canvas, int y) const;
    void takeLuma(const Canvas& canvas, int y, int number);
    void takeChroma(const Canvas& canvas, int y, int number);
    [[nodiscard]] const float* grainFor(int y, int number) const;

    std::vector<float> m_grain;
    std::vector<float> m_vignette;
    std::vector<std::uint8_t> m_bytes;
};

} // namespace kestro::intro
