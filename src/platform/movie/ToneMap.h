#pragma once

#include "platform/movie/MovieLight.h"

#include <array>
#include <cstdint>
#include <vector>

namespace kestro {

/// Makes colours of more light, or of a wider gamut, than a screen has into colours of the screen. Each of
/// red, green and blue is bent as in ITU-R BT.2390, so that what is brighter than paper keeps its details;
/// what the screen's gamut lacks is mixed with grey of its brightness. Immutable; any thread.
class ToneMap final {
public:
    explicit ToneMap(const MovieLight& light);

    /// Replaces ten bits of each colour in a pixel (red above green above blue) by eight, as a screen takes
    /// them.
    void mapTenBits(std::uint32_t* pixels, int count) const;
    /// Makes pixels of the screen of pixels of four 16-bit numbers, red first, the last one ignored.
    void mapSixteenBits(const std::uint16_t* colours, std::uint32_t* pixels, int count) const;

private:
    static constexpr int levels = 1024;
    /// Tables over light go by the upper bits of a float: as many entries for each doubling.
    static constexpr int entriesPerDoubling = 512;
    static constexpr int doublings = 24;
    static constexpr int entries = entriesPerDoubling * doublings;

    /// Pixels are worked on so many at once.
    static constexpr int blockSize = 64;
    using Channel = std::array<float, blockSize>;
    struct Block {
        Channel red{};
        Channel green{};
        Channel blue{};
    };
    using Entries = std::array<std::int32_t, blockSize>;

    void fillTables(const MovieLight& light);
    void mapBlock(Block& block, std::uint32_t* pixels, int count) const;
    void showOnDisplay(Block& scene) const;
    void encode(const Block& block, std::uint32_t* pixels, int count) const;

    const bool m_isScene; ///< the numbers are light before the camera, not that of a display
    const std::array<float, 9> m_gamut;
    std::array<float, levels> m_light{}; ///< of a number: on the screen, or before the camera
    std::vector<float> m_boost; ///< where it is before the camera: what a display makes of brightness
    std::vector<float> m_bent;  ///< and what the screen makes of that
    std::vector<std::uint8_t> m_encoded; ///< numbers that a screen takes
};

} // namespace kestro
