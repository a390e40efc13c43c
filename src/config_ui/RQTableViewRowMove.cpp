#include "config_ui/RQTableViewRowMove.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <qdrawutil.h>

#include <algorithm>

namespace kestro {

namespace {

constexpr double periodSeconds = 0.1;
constexpr double movingRowOpacity = 0.75;
constexpr int insertionLineHeight = 2;
constexpr int bezelWidth = 2;

/// Where `start` … `start + length` lies once it is pushed into `from` … `from + extent`: the near end first,
/// so that what is longer keeps its far end inside.
int keptInside(int start, int length, int from, int extent)
{
    if (start < from) return from;
    return start + length > from + extent ? from + extent - length : start;
}

/// The offset nearest to `offset` at which a window of `extent` shows most of `start` … `end`.
int offsetShowing(int start, int end, int offset, int extent)
{
    const bool fits = end - start <= extent;
    if (start < offset && end <= offset + extent) return fits ? start : end - extent;
    if (start >= offset && end > offset + extent) return fits ? end - extent : start;
    return offset;
}

} // namespace

RQTableViewRowMove::RQTableViewRowMove(QWidget* parent)
    : QTableView(parent)
{
    setSelectionBehavior(SelectRows);
    // A row follows the mouse pixel by pixel, so the table scrolls that way, too.
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setFocusPolicy(acceptsFirstResponder() ? Qt::StrongFocus : Qt::NoFocus);
    updateHint();
}

RQTableViewRowMove::~RQTableViewRowMove() = default;

void RQTableViewRowMove::setNeedsCommandKey(bool needed)
{
    m_needsCommandKey = needed;
    updateHint();
}

QString RQTableViewRowMove::rowMoveHint() const
{
    return m_needsCommandKey ? tr("Rows are moved by dragging with Alt held, or with Alt+Up and Alt+Down.")
                             : tr("Rows are moved by dragging, or with Alt+Up and Alt+Down.");
}

void RQTableViewRowMove::updateHint()
{
    setToolTip(rowMoveHint());
    setAccessibleDescription(rowMoveHint());
}

QRect RQTableViewRowMove::visibleRect() const
{
    return {QPoint(horizontalOffset(), verticalOffset()), viewport()->size()};
}

QRect RQTableViewRowMove::tableBounds() const
{
    const QSize rows(horizontalHeader()->length(), verticalHeader()->length());
    return {QPoint(0, 0), rows.expandedTo(viewport()->size())};
}

QRect RQTableViewRowMove::rectOfRow(int row) const
{
    if (row < 0 || row >= verticalHeader()->count()) return {};
    return {0, verticalHeader()->sectionPosition(row), tableBounds().width(),
            verticalHeader()->sectionSize(row)};
}

int RQTableViewRowMove::rowAtPoint(const QPoint& point) const
{
    return tableBounds().contains(point) ? rowAt(point.y() - verticalOffset()) : -1;
}

QPoint RQTableViewRowMove::convertFromViewport(const QPoint& point) const
{
    return point + visibleRect().topLeft();
}

void RQTableViewRowMove::scrollRectToVisible(const QRect& rect)
{
    if (rect.isEmpty()) return;
    const QRect visible = visibleRect();
    horizontalScrollBar()->setValue(
        offsetShowing(rect.x(), rect.x() + rect.width(), visible.x(), visible.width()));
    verticalScrollBar()->setValue(
        offsetShowing(rect.y(), rect.y() + rect.height(), visible.y(), visible.height()));
}

bool RQTableViewRowMove::move(const RowMoveEvent& press)
{
    if (m_needsCommandKey && !press.modifiers.testFlag(Qt::AltModifier)) return false;
    const QPoint point = convertFromViewport(press.location);
    m_draggedRow = rowAtPoint(point);
    if (m_draggedRow < 0 || !m_delegate.tableViewShouldMoveRowInColumn) return false;
    const int column = columnAt(press.location.x());
    if (!m_delegate.tableViewShouldMoveRowInColumn(*this, m_draggedRow, column)) return false;
    return m_needsMoveFreely ? moveRowFreely(press) : moveRow(press);
}

bool RQTableViewRowMove::moveRow(const RowMoveEvent& press)
{
    m_draggedRow = rowAtPoint(convertFromViewport(press.location));
    takeRow(m_draggedRow);
    m_tableCache = sizeCacheWindowTo(m_tableCache, visibleRect().size());
    grabTableBits();
    (void)imageForRow(m_draggedRow);
    const QRect rect = rectOfRow(m_draggedRow);
    const QPoint point = convertFromViewport(press.location); // once the whole row is in view
    m_move = Move{rect, point - rect.topLeft(), press.location, press};
    viewport()->setMouseTracking(true); // so that a lost release shows
    followEvent(press);
    return true;
}

void RQTableViewRowMove::takeRow(int row)
{
    m_hasTakenPress = true;
    setFocus(Qt::MouseFocusReason);
    selectRowAlone(row);
    scrollRectToVisible(rectOfRow(row));
    viewport()->repaint();
}

void RQTableViewRowMove::selectRowAlone(int row)
{
    const QModelIndex index = model()->index(row, std::max(currentIndex().column(), 0), rootIndex());
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    pressAt(index, Qt::NoModifier);
}

void RQTableViewRowMove::selectRows(int first, int last)
{
    selectRowAlone(first);
    const QModelIndex index = model()->index(last, currentIndex().column(), rootIndex());
    pressAt(index, Qt::ShiftModifier);
    scrollTo(index);
}

// The base table takes the row that Shift extends from out of presses and keys, and has no other way to say
// it.
void RQTableViewRowMove::pressAt(const QModelIndex& index, Qt::KeyboardModifiers modifiers)
{
    if (!index.isValid()) return;
    const QSignalBlocker quiet(this);
    const QPointF at = visualRect(index).center();
    QMouseEvent press(QEvent::MouseButtonPress, at, viewport()->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, modifiers);
    const QScopedValueRollback<const QEvent*> sent(m_sentPress, &press);
    handlePress(press);
}

// From Qt 6.8 on the table asks what a new current row means to the selection, and believes the keyboard.
QItemSelectionModel::SelectionFlags RQTableViewRowMove::selectionCommand(const QModelIndex& index,
                                                                         const QEvent* event) const
{
    return QTableView::selectionCommand(index, event ? event : m_sentPress);
}

// One pass of a move: the row goes where the mouse is; where that is partly out of view, the table scrolls to
// it, and goes on doing so while the mouse stands still.
void RQTableViewRowMove::followEvent(const RowMoveEvent& event)
{
    if (event.type == RowMoveEvent::Type::LeftMouseUp) {
        depositAt(convertFromViewport(event.location));
        return;
    }
    m_move->event = event;
    m_move->mouse = event.location;
    const QRect bounds = tableBounds();
    QRect& rect = m_move->rect;
    rect.moveTopLeft(convertFromViewport(event.location) - m_move->offset);
    rect.moveTop(keptInside(rect.y(), rect.height(), bounds.y(), bounds.height()));
    rect.moveLeft(keptInside(rect.x(), rect.width(), bounds.x(), bounds.width()));
    if (visibleRect().contains(rect)) {
        m_periodicEvents.reset();
    } else {
        scrollRectToVisible(rect);
        grabTableBits();
        if (!m_periodicEvents)
            m_periodicEvents = m_timers->repeating(periodSeconds, [this] {
                RowMoveEvent periodic = m_move->event;
                periodic.type = RowMoveEvent::Type::Periodic;
                followEvent(periodicEventWithLocationSetToPoint(periodic, m_move->mouse));
            });
    }
    viewport()->update();
}

void RQTableViewRowMove::depositAt(const QPoint& release)
{
    const int under = rowAtPoint(release);
    const int target = under == -1 ? rowAtPoint(m_move->rect.topLeft()) : under;
    endMove();
    startRowEndedAt(m_draggedRow, target);
}

// Without a moving row the table is drawn as it is, whatever becomes of the drop.
void RQTableViewRowMove::endMove()
{
    m_periodicEvents.reset();
    m_move.reset();
    viewport()->setMouseTracking(hasMouseTracking());
    viewport()->update();
}

bool RQTableViewRowMove::startRowEndedAt(int from, int to)
{
    if (to == -1 || to == from) return false;
    if (m_delegate.tableViewWillDepositRowAt && !m_delegate.tableViewWillDepositRowAt(*this, from, to))
        return false;
    if (!m_delegate.tableViewDidDepositRowAt || !m_delegate.tableViewDidDepositRowAt(*this, from, to))
        return false;
    reset();
    selectRowAlone(to);
    return true;
}

QPixmap RQTableViewRowMove::sizeCacheWindowTo(const QPixmap& image, const QSize& size) const
{
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size) * ratio).toSize();
    if (image.size() == pixels && qFuzzyCompare(image.devicePixelRatio(), ratio)) return image;
    QPixmap made(pixels);
    made.setDevicePixelRatio(ratio);
    made.fill(Qt::transparent);
    return made;
}

const QPixmap& RQTableViewRowMove::imageForRow(int row)
{
    const QRect rect = rectOfRow(row);
    const int width = m_needsMoveFreely ? visibleRect().width() : rect.width();
    m_rowCache = sizeCacheWindowTo(m_rowCache, QSize(width, rect.height()));
    grabRowBits(row);
    return m_rowCache;
}

void RQTableViewRowMove::grabTableBits()
{
    grabBits(visibleRect(), m_tableCache);
}

void RQTableViewRowMove::grabRowBits(int row)
{
    QRect rect = rectOfRow(row);
    if (m_needsMoveFreely) rect = QRect(visibleRect().x(), rect.y(), visibleRect().width(), rect.height());
    grabBits(rect, m_rowCache);
}

// Only what is visible has pixels; the rest stays clear.
void RQTableViewRowMove::grabBits(const QRect& source, QPixmap& cache)
{
    cache.fill(Qt::transparent);
    const QRect visible = source & visibleRect();
    if (visible.isEmpty()) return;
    m_isGrabbing = true;
    viewport()->render(&cache, visible.topLeft() - source.topLeft(),
                       QRegion(visible.translated(-visibleRect().topLeft())));
    m_isGrabbing = false;
}

void RQTableViewRowMove::drawTableCache(QPainter& painter) const
{
    painter.drawPixmap(visibleRect().topLeft(), m_tableCache);
    const QRect bezel = rectOfRow(m_draggedRow).adjusted(0, -1, 0, 0);
    const QBrush grey = palette().button();
    qDrawShadePanel(&painter, bezel, palette(), true, bezelWidth, &grey);
    painter.fillRect(bezel.adjusted(bezelWidth, bezelWidth, -bezelWidth, -bezelWidth),
                     palette().color(QPalette::Dark));
}

void RQTableViewRowMove::drawRowCacheInMouseLoc(QPainter& painter, const QRect& rect,
                                                const QPoint& mouse) const
{
    const int target = rowAtPoint(mouse);
    const QRect row = rectOfRow(target);
    if (target != m_draggedRow && !row.isEmpty()) {
        const bool isUp = target < m_draggedRow;
        const int y = isUp ? row.y() : row.y() + row.height() - insertionLineHeight;
        painter.fillRect(QRect(row.x(), y, row.width(), insertionLineHeight), Qt::blue);
    }
    painter.setOpacity(movingRowOpacity);
    painter.drawPixmap(rect.topLeft(), m_rowCache);
}

void RQTableViewRowMove::paintEvent(QPaintEvent* event)
{
    if (!m_move || m_isGrabbing) {
        QTableView::paintEvent(event);
        return;
    }
    QPainter painter(viewport());
    painter.translate(-visibleRect().topLeft());
    drawTableCache(painter);
    drawRowCacheInMouseLoc(painter, m_move->rect, convertFromViewport(m_move->mouse));
}

} // namespace kestro
