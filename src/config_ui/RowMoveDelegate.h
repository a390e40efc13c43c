#pragma once

#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

class QMimeData;

namespace kestro {

class RQTableViewRowMove;

/// Writes an object of its own kind under a type; answers whether it could. `name` is for the log.
struct PasteboardWriter {
    QString name;
    std::function<bool(QMimeData& pasteboard, const QVariant& object, const QString& type)> write;
};

/// What a table asks and tells whoever holds its data while a row is moved. A message that is left empty is
/// one that the delegate does not have. The table keeps a copy; what the functions refer to outlives it. Main
/// thread.
struct RowMoveDelegate {
    /// May this row, pressed in this column, move? Without it no move starts.
    std::function<bool(RQTableViewRowMove&, int row, int column)> tableViewShouldMoveRowInColumn;
    /// A row is about to be dropped: go on? May be left out.
    std::function<bool(RQTableViewRowMove&, int from, int to)> tableViewWillDepositRowAt;
    /// Take the item at `from` out and insert it at `to`, counted after that; answers whether it is done.
    /// Without it every drop fails.
    std::function<bool(RQTableViewRowMove&, int from, int to)> tableViewDidDepositRowAt;

    // Of free moves only.

    /// The picture to drag instead of the row's own; may be left out or answer a null one.
    std::function<QPixmap(RQTableViewRowMove&, int row)> tableViewImageForRow;
    /// Further types that the row is written under; may be left out.
    std::function<QStringList(RQTableViewRowMove&)> dragTypesOfTable;
    /// How an object of this type is written, and the object; without either the type is left empty.
    std::function<PasteboardWriter(RQTableViewRowMove&, const QString& type)> tableViewPboardSelectorForType;
    std::function<QVariant(RQTableViewRowMove&, const QString& type)> tableViewObjectForType;
    /// May the dragged row be dropped on this one (-1 for none)? Without it none may.
    std::function<bool(RQTableViewRowMove&, int draggedRow, int row)> tableViewDraggingRowOverRow;
};

} // namespace kestro
