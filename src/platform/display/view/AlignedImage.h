#pragma once

#include <QImage>

namespace kestro {

/// Pixels in the shape that moving content is rendered into fastest: the first pixel and every row start at a
/// multiple of this many bytes.
inline constexpr int pixelAlignment = 64;

/// Bytes of a row that holds `width` pixels and starts at an aligned address like the row before it.
[[nodiscard]] constexpr int alignedStride(int width)
{
    return (width * 4 + pixelAlignment - 1) / pixelAlignment * pixelAlignment;
}

/// A 32-bit image of zeroes, rows aligned, with `guardRows` writable rows of the same stride below its last.
/// Null when the size is empty or beyond what any screen could want (512 MiB), or memory is short. A copy
/// that is drawn into loses alignment and guard rows.
[[nodiscard]] QImage alignedImage(QSize size, QImage::Format format, int guardRows = 0);

} // namespace kestro
