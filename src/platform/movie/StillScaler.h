#pragma once

#include "platform/movie/ToneMap.h"

#include <QImage>
#include <QSize>

#include <cstdint>
#include <memory>
#include <vector>

struct AVFrame;
struct SwsContext;

namespace kestro {

struct PixelTarget;

/// Makes frames of decoded frames: scaled, turned upright, opaque, in the colours that playing them gives.
/// One thread at a time. Tested by StillDecoderTest.
class StillScaler final {
public:
    StillScaler() = default;
    ~StillScaler();
    StillScaler(const StillScaler&) = delete;
    StillScaler& operator=(const StillScaler&) = delete;

    /// `frame` turned by `rotation` degrees clockwise and stretched to `size` pixels. A null image when it
    /// cannot be had.
    [[nodiscard]] QImage picture(const AVFrame& frame, QSize size, int rotation);
    /// Draws the same over the whole target. False when it cannot be had.
    [[nodiscard]] bool draw(const AVFrame& frame, const PixelTarget& target, int rotation);

private:
    [[nodiscard]] QImage scaled(const AVFrame& frame, QSize size);
    [[nodiscard]] bool scale(const AVFrame& frame, const PixelTarget& target);
    [[nodiscard]] bool scaleAndMap(const AVFrame& frame, const MovieLight& light, const PixelTarget& target);
    [[nodiscard]] bool scaleInto(const AVFrame& frame, const PixelTarget& target, int format);

    SwsContext* m_scaler = nullptr;
    MovieLight m_light; ///< what the next was made for
    std::unique_ptr<const ToneMap> m_toneMap;
    std::vector<std::uint16_t> m_wide; ///< pixels on their way through it
};

} // namespace kestro
