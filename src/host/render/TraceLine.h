#pragma once

#include <QJsonObject>

namespace kestro {

class HostedSaver;

/// What one screen shows after a tick, as a line of a trace: its windows from bottom to top and, where the
/// saver tells it (SaverControl), the movie, the effects and the sign. `screenIndex` counts from 0,
/// `seconds` from the start. Rectangles are [x, y, width, height] in the screen's coordinates.
[[nodiscard]] QJsonObject traceLine(const HostedSaver& saver, int screenIndex, double seconds);

} // namespace kestro
