#pragma once

#include "settings/EntryMark.h"

class QColor;
class QPainter;
class QRect;

namespace kestro {

// The small signs in a row of the playlist for what was said of its entry: a star; a sun, a moon or a clock
// for when it plays. Drawn as shapes, because fonts may lack them.

/// How wide they are together, each `side` high and wide; 0 where nothing was said.
[[nodiscard]] int widthOfMarkSigns(const EntryMark& mark, int side);

/// Draws them in that colour from the left of `place`, whose height is theirs.
void paintMarkSigns(QPainter& painter, const EntryMark& mark, const QRect& place, const QColor& colour);

} // namespace kestro
