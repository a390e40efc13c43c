#pragma once

#include "platform/display/view/Geometry.h"

#include <QRect>

namespace kestro {

// Places on the desk that all monitors make up together. The first monitor is the primary one: its lower left
// corner is (0, 0). Main thread; points. Tested by QtDesktopTest.

/// A place as the window system tells it, rows counted downwards, in global coordinates, y upwards.
[[nodiscard]] Rect deskFrame(const QRect& place);

/// The size of the monitor that most of that place lies on; where it lies on none, of the first one.
[[nodiscard]] Size monitorSizeAt(const QRect& place);

/// The first monitor's frame in global coordinates; empty while there is no monitor.
[[nodiscard]] Rect firstMonitorFrame();

} // namespace kestro
