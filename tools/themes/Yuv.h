#pragma once

#include <cstdint>
#include <vector>

namespace kestro::themes {

class Frame;

/// The picture as the encoder takes it: yuv420p, BT.709, limited range. A fixed grain of less than one step
/// keeps soft shades from showing bands. Each drawing thread owns one.
class Yuv final {
public:
    Yuv();
    /// The bytes of `frame`, valid until the next call.
    [[nodiscard]] const std::vector<std::uint8_t>& take(Frame& frame);

private:
    void takeLuma(Frame& frame, int y);
    void takeChroma(Frame& frame, int y);

    std::vector<float> m_grain;
    std::vector<std::uint8_t> m_bytes;
};

} // namespace kestro::themes
