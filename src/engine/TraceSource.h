#pragma once

#include "platform/display/view/Geometry.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace kestro {

/// What a saver shows at one moment, for tests and traces. Rectangles are in the coordinates of the view's
/// screen.
struct SaverSnapshot {
    struct Movie {
        QString url;           ///< absolute string
        std::int64_t time = 0; ///< movie time units
        float rate = 0;
        Rect frame; ///< of the movie frame
    };
    std::optional<Movie> movie; ///< nothing while the movie frame is empty or there is none
    int curIdx = -1;
    int trail = 0;            ///< records of the after-image trail
    bool isFading = false;    ///< a left-behind picture is fading
    std::optional<Rect> sign; ///< where the sign picture is, while it shows
};

/// A saver that tells what it shows. Main thread.
class TraceSource {
public:
    virtual ~TraceSource() = default;

    [[nodiscard]] virtual SaverSnapshot snapshot() const = 0;
};

} // namespace kestro
