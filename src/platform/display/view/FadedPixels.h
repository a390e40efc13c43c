#pragma once

#include <QImage>

namespace kestro {

/// Puts what `part` of `from` looks like over black at `opacity`, 0 … 1, to `place` in `to`: its colours
/// times that, opaque. False, and nothing done, where one pass cannot do it: when `from` is not of opaque
/// 32-bit pixels (RGB32), `to` not of 32-bit ones, or not all of it lies inside both.
[[nodiscard]] bool copyFaded(const QImage& from, const QRect& part, QImage& to, QPoint place, double opacity);

} // namespace kestro
