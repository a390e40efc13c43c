#pragma once

#include "platform/display/view/Picture.h"

#include <QString>

namespace kestro {

/// What is written over a movie: a time of day, large, and beside it two lines. Each may be empty. A plain
/// value.
struct CaptionLines {
    QString clock;
    QString title;
    QString detail; ///< smaller, below the title

    [[nodiscard]] bool isEmpty() const { return clock.isEmpty() && title.isEmpty() && detail.isEmpty(); }
    [[nodiscard]] bool operator==(const CaptionLines&) const = default;
};

/// How large it is written.
struct CaptionSize {
    double letters = 16;   ///< of the title, in points
    double widest = 600;   ///< of a line beside the clock, in points; a longer one loses its middle
    double pixelRatio = 1; ///< pixels a point

    [[nodiscard]] bool operator==(const CaptionSize&) const = default;
};

/// The lines as a picture, in the font of the system: white, with a dark shadow all around each letter, so
/// that they can be read on whatever is below. Null where there are none. Needs an application object with a
/// window system. Main thread.
[[nodiscard]] Picture captionPicture(const CaptionLines& lines, const CaptionSize& size);

} // namespace kestro
