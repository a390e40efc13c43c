#pragma once

#include "config_ui/RowMoveDelegate.h"
#include "config_ui/RowMoveEvent.h"
#include "platform/display/desktop/QtTimerSource.h"

#include <QPixmap>
#include <QTableView>

#include <cstdint>
#include <memory>
#include <optional>

class QDrag;

namespace kestro {

/// Whether a list of pasteboard types holds `type`.
[[nodiscard]] bool IncludesType(const QStringList& types, const QString& type);

/// A table whose rows the user moves with the mouse, or with Alt+Up and Alt+Down. It knows nothing of the
/// data: it asks its delegate whether a row may move, shows the moving row, and tells the delegate where it
/// went. A press waits 0.1 s for what follows, so a click stays a click. Owned by its parent widget; main
/// thread. Points and rectangles are in table coordinates (pixels from the top left corner of the first cell,
/// whatever is scrolled to) unless said otherwise.
class RQTableViewRowMove : public QTableView {
    Q_OBJECT
public:
    /// The pasteboard type of a dragged row; its value is the row's number as decimal text.
    static const QString privatePasteboardType;
    /// What a drag over the table, or out of it, may do.
    enum DragOperation { DragOperationNone = 0, DragOperationCopy = 1, DragOperationGeneric = 4 };

    explicit RQTableViewRowMove(QWidget* parent = nullptr);
    ~RQTableViewRowMove() override;

    void setRowMoveDelegate(RowMoveDelegate delegate) { m_delegate = std::move(delegate); }
    /// Who times the wait after a press and the autoscroll, instead of the event loop; outlives the table.
    void setTimerSource(TimerSource& timers) { m_timers = &timers; }

    /// Whether a row moves only while the key is held at the press. That key is Alt (Option), whatever the
    /// switch is called. Starts false.
    [[nodiscard]] bool needsCommandKey() const { return m_needsCommandKey; }
    void setNeedsCommandKey(bool needed);
    /// Whether a move is a drag of the desktop, which other tables and programs may take, instead of one
    /// inside the table. Starts false.
    [[nodiscard]] bool needsMoveFreely() const { return m_needsMoveFreely; }
    void setNeedsMoveFreely(bool needed) { m_needsMoveFreely = needed; }
    /// The row that moves, or moved last.
    [[nodiscard]] std::int32_t draggedRow() const { return m_draggedRow; }
    /// Whether a row is on its way inside the table.
    [[nodiscard]] bool isMovingRow() const { return m_move.has_value(); }

    /// A press in a window that is not in front already starts a move, and the table takes the keyboard.
    [[nodiscard]] bool acceptsFirstMouse() const { return true; }
    [[nodiscard]] bool acceptsFirstResponder() const { return acceptsFirstMouse(); }

    /// How rows are moved here, as a sentence for the user; also the table's tool tip.
    [[nodiscard]] QString rowMoveHint() const;

    /// Starts a move with a press that was found to be no click; false when it starts none: the key is not
    /// held, no row is there, or the delegate refuses.
    bool move(const RowMoveEvent& press);
    /// The drop: asks and tells the delegate, reloads and selects. False when nothing was moved.
    bool startRowEndedAt(int from, int to);
    /// Ends a move inside the table with every row where it was; nothing when there is none. Escape does, and
    /// whatever takes the keys from the window: some window managers keep Alt+Escape for themselves.
    void cancelMove();
    /// Moves the one selected row by so many places. False when none is moved: several are selected, or none,
    /// it would leave the table, or the delegate refuses.
    bool moveSelectedRowBy(int step);
    /// Whether there is one selected row, and a place for it so many places further.
    [[nodiscard]] bool hasPlaceForSelectedRow(int step) const;

    /// Selects a row and no other, makes it the current one, shows it, and has Shift extend from there.
    void selectRowAlone(int row);
    /// Selects the rows from one to a later one and no other, makes the last the current one, shows it, and
    /// has Shift extend from the first.
    void selectRows(int first, int last);

    /// The picture of a row, from the screen: as wide as the row or, in free mode, as the visible part.
    [[nodiscard]] const QPixmap& imageForRow(int row);
    /// The visible part of the table as it looked at the last step of a move that scrolled.
    [[nodiscard]] const QPixmap& tableCache() const { return m_tableCache; }
    /// `image` where it has that size (in points), else a new clear one.
    [[nodiscard]] QPixmap sizeCacheWindowTo(const QPixmap& image, const QSize& size) const;

    /// Writes the row for a drag; false when its number could not be written.
    bool copyRowToPasteboard(int row, QMimeData& pasteboard);
    /// 5, copy or generic, inside and outside the application alike.
    [[nodiscard]] int draggingSourceOperationMaskForLocal(bool isLocal) const;
    /// Whether the types hold the private one.
    [[nodiscard]] bool acceptsTypesForSender(const QStringList& types, const QObject* sender) const;

    // The table as the place of a drop; only where viewport()->setAcceptDrops(true) makes it one.

    [[nodiscard]] int draggingEntered(const QMimeData& pasteboard) const;
    /// Scrolls where the point is at an edge; answers what a drop there would do.
    [[nodiscard]] int draggingUpdated(const QPoint& point);
    bool performDragOperation(const QPoint& point);
    /// `point` is in desktop coordinates.
    void draggedImageEndedAtDeposited(const QPointF& point, bool deposited) const;

    // Places, in table coordinates.

    [[nodiscard]] QRect visibleRect() const;
    [[nodiscard]] QRect tableBounds() const;
    /// Empty for no row.
    [[nodiscard]] QRect rectOfRow(int row) const;
    /// -1 for none.
    [[nodiscard]] int rowAtPoint(const QPoint& point) const;
    /// Scrolls as little as possible to show as much as possible of `rect`.
    void scrollRectToVisible(const QRect& rect);
    /// A point of the viewport in table coordinates.
    [[nodiscard]] QPoint convertFromViewport(const QPoint& point) const;

    // A change of the rows ends a move inside the table; what they show may change meanwhile.
    void reset() override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles = {}) override;

protected:
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;

    /// Hands the drag to the desktop and waits for its end; answers what became of it.
    virtual Qt::DropAction runDrag(QDrag& drag, Qt::DropActions allowed, Qt::DropAction proposed);

    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags
    selectionCommand(const QModelIndex& index, const QEvent* event = nullptr) const override;

private:
    /// A move inside the table that is under way.
    struct Move {
        QRect rect;         ///< of the moving row
        QPoint offset;      ///< from its corner to the mouse
        QPoint mouse;       ///< in the viewport
        RowMoveEvent event; ///< the last one
    };

    [[nodiscard]] bool lookAhead(const QMouseEvent& event);
    bool endLookAhead();
    void handlePress(QMouseEvent& press);
    bool moveRow(const RowMoveEvent& press);
    bool moveRowFreely(const RowMoveEvent& press);
    void dragImage(const QPixmap& image, const QPoint& at, const QPoint& mouse,
                   std::unique_ptr<QMimeData> pasteboard);
    void takeRow(int row);
    void pressAt(const QModelIndex& index, Qt::KeyboardModifiers modifiers);
    void followEvent(const RowMoveEvent& event);
    void depositAt(const QPoint& release);
    void endMove();
    void updateHint();

    void grabTableBits();
    void grabRowBits(int row);
    void grabBits(const QRect& source, QPixmap& cache);
    void drawTableCache(QPainter& painter) const;
    void drawRowCacheInMouseLoc(QPainter& painter, const QRect& rect, const QPoint& mouse) const;
    void fillPasteboardType(QMimeData& pasteboard, const QString& type);

    bool m_needsCommandKey = false;
    bool m_needsMoveFreely = false;
    std::int32_t m_draggedRow = 0;
    QPixmap m_rowCache;
    QPixmap m_tableCache;
    RowMoveDelegate m_delegate;
    QtTimerSource m_eventLoopTimers;
    TimerSource* m_timers = &m_eventLoopTimers;
    std::unique_ptr<QMouseEvent> m_press; ///< while what follows it is awaited
    std::unique_ptr<Timer> m_lookAhead;
    const QEvent* m_sentPress = nullptr; ///< the press of nobody's that the base is told of just now
    bool m_hasTakenPress = false;        ///< the last press started a move, even if that is over
    std::optional<Move> m_move;
    std::unique_ptr<Timer> m_periodicEvents;
    bool m_isGrabbing = false;
};

} // namespace kestro
