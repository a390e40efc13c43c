#pragma once

#include "platform/base/ScreenChoice.h"
#include "platform/display/view/Geometry.h"

#include <QRect>
#include <QSize>

#include <vector>

namespace kestro {

/// Which monitor shows which picture, and where it lies there. A plain value.
struct ScreenPlan {
    /// A monitor as it stands on the desk.
    struct Monitor {
        QString name;
        Rect frame;       ///< global points
        QSize pixels;     ///< of its surface
        double ratio = 1; ///< pixels a point
    };
    /// A monitor that shows something of a picture.
    struct Part {
        std::size_t monitor = 0; ///< its place in the list
        QRect place;             ///< of the whole picture, pixels of the monitor; may reach beyond its edges
        bool operator==(const Part&) const = default;
    };
    /// One picture, which is what one saver draws.
    struct Picture {
        Rect frame; ///< global points
        QSize pixels;
        double ratio = 1; ///< pixels a point
        std::vector<Part> parts;
        bool operator==(const Picture&) const = default;
    };

    std::vector<Picture> pictures;
    QStringList missing; ///< names that were chosen and that no monitor has

    /// A picture across several monitors has no more pixels than this; where it would, they are coarser.
    static constexpr double mostPixels = 64.0 * 1024 * 1024;

    /// The plan for these monitors, first one first. Where none of those chosen is there, all are used.
    [[nodiscard]] static ScreenPlan of(const ScreenChoice& choice, const std::vector<Monitor>& monitors);
};

} // namespace kestro
