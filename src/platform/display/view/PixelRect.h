#pragma once

#include <QRect>
#include <QRectF>

namespace kestro {

/// The nearest whole pixel edge, at most 2^20 from zero; what is no number counts as zero.
[[nodiscard]] int pixelEdge(double position);

/// The pixels that `rect` covers: each edge at the nearest whole pixel. Two rectangles that share an edge so
/// share it in pixels too.
[[nodiscard]] QRect pixelRectOf(const QRectF& rect);

} // namespace kestro
