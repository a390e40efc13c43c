#include "config_ui/RQTableViewRowMove.h"
#include "platform/base/Log.h"

#include <QCursor>
#include <QDrag>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPointer>

// The free mode: rows as things that the desktop drags and drops.

namespace kestro {

const QString RQTableViewRowMove::privatePasteboardType = QStringLiteral("RQTableViewPrivatePBoardType");

namespace {

// The desktop has no generic operation; a move is what it asks for where nothing else is said.
Qt::DropActions actionsOf(int operations)
{
    Qt::DropActions actions;
    actions.setFlag(Qt::CopyAction, operations & RQTableViewRowMove::DragOperationCopy);
    actions.setFlag(Qt::MoveAction, operations & RQTableViewRowMove::DragOperationGeneric);
    return actions;
}

void answer(QDropEvent& event, int operation)
{
    event.setDropAction(operation == RQTableViewRowMove::DragOperationGeneric ? Qt::MoveAction
                                                                              : Qt::IgnoreAction);
    event.setAccepted(operation != RQTableViewRowMove::DragOperationNone);
}

} // namespace

bool IncludesType(const QStringList& types, const QString& type)
{
    return types.indexOf(type) != -1;
}

bool RQTableViewRowMove::moveRowFreely(const RowMoveEvent& press)
{
    m_draggedRow = rowAtPoint(convertFromViewport(press.location));
    takeRow(m_draggedRow);
    const QPoint mouse = convertFromViewport(press.location); // once the whole row is in view
    const QRect row = rectOfRow(m_draggedRow);
    const int lowerEdge = row.y() + row.height();
    QPixmap image;
    if (m_delegate.tableViewImageForRow) image = m_delegate.tableViewImageForRow(*this, m_draggedRow);
    QPoint at;
    if (image.isNull()) {
        image = imageForRow(m_draggedRow);
        at.setX(visibleRect().x());
    } else {
        at.setX(mouse.x() - qRound(image.deviceIndependentSize().width() / 2));
    }
    at.setY(lowerEdge - qRound(image.deviceIndependentSize().height()));
    auto pasteboard = std::make_unique<QMimeData>();
    if (!copyRowToPasteboard(m_draggedRow, *pasteboard)) return false;
    dragImage(image, at, mouse, std::move(pasteboard));
    return true;
}

// The picture's upper left corner is `at`. The table may be gone when the drag ends.
void RQTableViewRowMove::dragImage(const QPixmap& image, const QPoint& at, const QPoint& mouse,
                                   std::unique_ptr<QMimeData> pasteboard)
{
    const QPointer<RQTableViewRowMove> self = this;
    const QPointer<QDrag> drag = new QDrag(this);
    drag->setMimeData(pasteboard.release());
    drag->setPixmap(image);
    drag->setHotSpot(mouse - at);
    const Qt::DropAction done =
        runDrag(*drag, actionsOf(draggingSourceOperationMaskForLocal(true)), Qt::MoveAction);
    if (drag) drag->deleteLater();
    if (self) draggedImageEndedAtDeposited(QCursor::pos(), done != Qt::IgnoreAction);
}

Qt::DropAction RQTableViewRowMove::runDrag(QDrag& drag, Qt::DropActions allowed, Qt::DropAction proposed)
{
    return drag.exec(allowed, proposed);
}

bool RQTableViewRowMove::copyRowToPasteboard(int row, QMimeData& pasteboard)
{
    pasteboard.clear();
    if (m_delegate.dragTypesOfTable)
        for (const QString& type : m_delegate.dragTypesOfTable(*this))
            fillPasteboardType(pasteboard, type);
    const QByteArray number = QByteArray::number(row);
    pasteboard.setData(privatePasteboardType, number);
    return pasteboard.data(privatePasteboardType) == number;
}

void RQTableViewRowMove::fillPasteboardType(QMimeData& pasteboard, const QString& type)
{
    pasteboard.setData(type, {});
    if (!m_delegate.tableViewPboardSelectorForType || !m_delegate.tableViewObjectForType) return;
    const PasteboardWriter writer = m_delegate.tableViewPboardSelectorForType(*this, type);
    const QVariant object = m_delegate.tableViewObjectForType(*this, type);
    if (!writer.write || writer.write(pasteboard, object, type)) return;
    logLine(QStringLiteral("RQ_LOG: Error during %1 : %2, %3").arg(writer.name, object.toString(), type));
}

int RQTableViewRowMove::draggingSourceOperationMaskForLocal(bool /*isLocal*/) const
{
    return DragOperationCopy | DragOperationGeneric;
}

bool RQTableViewRowMove::acceptsTypesForSender(const QStringList& types, const QObject* /*sender*/) const
{
    return IncludesType(types, privatePasteboardType);
}

int RQTableViewRowMove::draggingEntered(const QMimeData& pasteboard) const
{
    return IncludesType(pasteboard.formats(), privatePasteboardType) ? DragOperationGeneric
                                                                     : DragOperationNone;
}

int RQTableViewRowMove::draggingUpdated(const QPoint& point)
{
    const int row = rowAtPoint(point);
    const QRect visible = visibleRect();
    const int height = verticalHeader()->defaultSectionSize();
    const int top = visible.y();
    const int bottom = visible.y() + visible.height();
    if (row == 0 || row == verticalHeader()->count() - 1)
        scrollRectToVisible(rectOfRow(row));
    else if (point.y() - top < height / 4.0)
        scrollRectToVisible(QRect(visible.x(), top - height, visible.width(), height));
    else if (bottom - point.y() < height / 4.0)
        scrollRectToVisible(QRect(visible.x(), bottom, visible.width(), height));
    const bool accepted = m_delegate.tableViewDraggingRowOverRow &&
                          m_delegate.tableViewDraggingRowOverRow(*this, m_draggedRow, row);
    return accepted ? DragOperationGeneric : DragOperationNone;
}

bool RQTableViewRowMove::performDragOperation(const QPoint& point)
{
    return startRowEndedAt(m_draggedRow, rowAtPoint(point));
}

void RQTableViewRowMove::draggedImageEndedAtDeposited(const QPointF& point, bool /*deposited*/) const
{
    logLine(QString::asprintf("end %f %f", point.x(), point.y()));
}

void RQTableViewRowMove::dragEnterEvent(QDragEnterEvent* event)
{
    answer(*event, draggingEntered(*event->mimeData()));
}

void RQTableViewRowMove::dragMoveEvent(QDragMoveEvent* event)
{
    answer(*event, draggingUpdated(convertFromViewport(event->position().toPoint())));
}

void RQTableViewRowMove::dropEvent(QDropEvent* event)
{
    const bool done = performDragOperation(convertFromViewport(event->position().toPoint()));
    answer(*event, done ? DragOperationGeneric : DragOperationNone);
}

} // namespace kestro
