#pragma once

#include <QPoint>

namespace kestro {

/// What drives a row's way through a table: the mouse, and the turns of autoscrolling while it stands still.
struct RowMoveEvent {
    enum class Type { LeftMouseDown, LeftMouseUp, LeftMouseDragged, Periodic };

    Type type = Type::Periodic;
    QPoint location; ///< in the table's viewport
    Qt::KeyboardModifiers modifiers;
    quint64 timestamp = 0; ///< milliseconds, as the desktop counts them
};

/// The same event, at `point`: a periodic event has no place of its own.
[[nodiscard]] inline RowMoveEvent periodicEventWithLocationSetToPoint(const RowMoveEvent& event,
                                                                      const QPoint& point)
{
    RowMoveEvent copy = event;
    copy.location = point;
    return copy;
}

} // namespace kestro
