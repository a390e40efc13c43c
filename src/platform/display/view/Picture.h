#pragma once

#include "platform/display/view/Geometry.h"

#include <QImage>

#include <optional>

namespace kestro {

/// A picture with its size in points; its pixels may be denser. Cheap to copy, the pixels are shared. Any
/// thread.
struct Picture {
    QImage image; ///< ARGB32_Premultiplied or RGB32
    Size size;    ///< points

    [[nodiscard]] bool isNull() const { return image.isNull(); }
};

/// A fully transparent picture.
[[nodiscard]] Picture blankPicture(Size size);

/// Reads a picture file (SVG, or a pixel format that Qt Gui reads), drawn at `pixelRatio` pixels a point. Its
/// size is the one the file names. Nothing when it cannot be read.
[[nodiscard]] std::optional<Picture> loadPicture(const QString& path, double pixelRatio = 1.0);

} // namespace kestro
