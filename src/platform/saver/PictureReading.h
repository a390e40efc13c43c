#pragma once

#include "platform/base/Result.h"

#include <QImage>
#include <QStringList>

#include <stop_token>

namespace kestro {

// Picture files, found and read. Any thread.

/// The files below `folder` that are pictures by their names, sorted; those in hidden folders, behind linked
/// folders and beyond the twenty-thousandth are left out. Ends early, with less, once a stop is asked for.
[[nodiscard]] QStringList listPictures(const QString& folder, const std::stop_token& stop = {});

/// The picture in the file at `path` in the largest size that fits into `room` pixels, RGB32, on black where
/// it is transparent, turned as the camera says that it was held; the first one of an animation. A picture
/// that is larger than the room is made smaller while it is decoded, where its format allows. The error is
/// one line: no regular file, no picture, broken, too large (Bounds::picturePixels), or stopped.
[[nodiscard]] Result<QImage> readPicture(const QString& path, QSize room, const std::stop_token& stop = {});

} // namespace kestro
