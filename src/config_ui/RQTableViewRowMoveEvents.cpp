#include "config_ui/RQTableViewRowMove.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>

namespace kestro {

namespace {

constexpr double lookAheadSeconds = 0.1;

RowMoveEvent eventOf(const QMouseEvent& event, RowMoveEvent::Type type)
{
    return {type, event.position().toPoint(), event.modifiers(), event.timestamp()};
}

} // namespace

// What needs no look ahead to be refused is not held up by one.
bool RQTableViewRowMove::lookAhead(const QMouseEvent& event)
{
    const bool isKeyMissing = m_needsCommandKey && !event.modifiers().testFlag(Qt::AltModifier);
    const int row = rowAtPoint(convertFromViewport(event.position().toPoint()));
    if (event.button() != Qt::LeftButton || isKeyMissing || row < 0 ||
        !m_delegate.tableViewShouldMoveRowInColumn)
        return false;
    m_press.reset(event.clone());
    m_lookAhead = m_timers->repeating(lookAheadSeconds, [this] { (void)endLookAhead(); });
    return true;
}

bool RQTableViewRowMove::endLookAhead()
{
    m_lookAhead.reset();
    const std::unique_ptr<QMouseEvent> press = std::move(m_press);
    if (move(eventOf(*press, RowMoveEvent::Type::LeftMouseDown))) return true;
    handlePress(*press);
    return false;
}

void RQTableViewRowMove::handlePress(QMouseEvent& press)
{
    if (press.type() == QEvent::MouseButtonDblClick)
        QTableView::mouseDoubleClickEvent(&press);
    else
        QTableView::mousePressEvent(&press);
}

void RQTableViewRowMove::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        cancelMove(); // the release before it went elsewhere
        m_hasTakenPress = false;
    }
    if (m_press || m_move || lookAhead(*event)) return; // another button's press changes nothing
    handlePress(*event);
}

void RQTableViewRowMove::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void RQTableViewRowMove::mouseMoveEvent(QMouseEvent* event)
{
    const bool isDrag = event->buttons().testFlag(Qt::LeftButton);
    const bool isFree = m_needsMoveFreely;
    if (m_press && isDrag && event->position() != m_press->position() && endLookAhead() && isFree)
        return; // that drag is over, and this table may be gone
    if (m_press) return;
    if (m_move)
        isDrag ? followEvent(eventOf(*event, RowMoveEvent::Type::LeftMouseDragged))
               : cancelMove(); // the release went elsewhere
    else if (!isDrag || !m_hasTakenPress)
        QTableView::mouseMoveEvent(event);
}

void RQTableViewRowMove::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_move) {
        if (event->button() == Qt::LeftButton) followEvent(eventOf(*event, RowMoveEvent::Type::LeftMouseUp));
        return;
    }
    if (m_press && event->button() == Qt::LeftButton) {
        m_lookAhead.reset();
        const std::unique_ptr<QMouseEvent> press = std::move(m_press);
        handlePress(*press);
    }
    if (event->button() == Qt::LeftButton && m_hasTakenPress) return; // of a press that the base never saw
    QTableView::mouseReleaseEvent(event);
}

void RQTableViewRowMove::keyPressEvent(QKeyEvent* event)
{
    const bool isAlt = (event->modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier;
    if (m_move) {
        if (event->key() == Qt::Key_Escape) cancelMove();
    } else if (isAlt && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
        moveSelectedRowBy(event->key() == Qt::Key_Up ? -1 : 1);
    } else {
        QTableView::keyPressEvent(event);
    }
}

bool RQTableViewRowMove::hasPlaceForSelectedRow(int step) const
{
    const QModelIndexList selected =
        selectionModel() != nullptr ? selectionModel()->selectedRows() : QModelIndexList();
    if (selected.size() != 1) return false;
    const int to = selected.front().row() + step;
    return to >= 0 && to < verticalHeader()->count();
}

bool RQTableViewRowMove::moveSelectedRowBy(int step)
{
    if (!hasPlaceForSelectedRow(step) || !m_delegate.tableViewShouldMoveRowInColumn) return false;
    const int from = selectionModel()->selectedRows().front().row();
    const int to = from + step;
    const int column = std::max(currentIndex().column(), 0);
    if (!m_delegate.tableViewShouldMoveRowInColumn(*this, from, column)) return false;
    m_draggedRow = from;
    return startRowEndedAt(from, to);
}

// The row stays under the mouse while the table scrolls below it.
void RQTableViewRowMove::wheelEvent(QWheelEvent* event)
{
    QTableView::wheelEvent(event);
    if (!m_move) return;
    grabTableBits();
    followEvent(m_move->event);
}

void RQTableViewRowMove::cancelMove()
{
    m_lookAhead.reset();
    m_press.reset();
    if (m_move) endMove();
}

void RQTableViewRowMove::reset()
{
    if (m_move) endMove();
    QTableView::reset();
}

void RQTableViewRowMove::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                     const QList<int>& roles)
{
    QTableView::dataChanged(topLeft, bottomRight, roles);
    if (!m_move) return;
    grabTableBits();
    viewport()->update();
}

void RQTableViewRowMove::rowsInserted(const QModelIndex& parent, int start, int end)
{
    if (m_move) endMove();
    QTableView::rowsInserted(parent, start, end);
}

void RQTableViewRowMove::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    if (m_move) endMove();
    QTableView::rowsAboutToBeRemoved(parent, start, end);
}

void RQTableViewRowMove::hideEvent(QHideEvent* event)
{
    cancelMove();
    QTableView::hideEvent(event);
}

void RQTableViewRowMove::changeEvent(QEvent* event)
{
    const bool isLeft = event->type() == QEvent::ActivationChange && !isActiveWindow();
    if (event->type() == QEvent::EnabledChange || isLeft) cancelMove();
    if (event->type() == QEvent::LanguageChange) updateHint();
    QTableView::changeEvent(event);
}

} // namespace kestro
