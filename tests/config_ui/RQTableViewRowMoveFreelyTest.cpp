#include "config_ui/RQTableViewRowMoveFixture.h"
#include "platform/base/Log.h"

#include <QDropEvent>

namespace kestro {

namespace {

const QString textType = QStringLiteral("text/plain");
const QString emptyType = QStringLiteral("application/x-empty");

class RowMoveFreely : public test::RowMoveTest {
protected:
    void SetUp() override
    {
        RowMoveTest::SetUp();
        m_table.setNeedsMoveFreely(true);
        m_table.viewport()->setAcceptDrops(true);
    }

    void dragOut(int row)
    {
        press(onRow(row) + QPoint(-30, 4));
        drag(onRow(row));
    }

    /// A drag of `pasteboard` enters the table, and then does what `Event` says; answers whether that was
    /// accepted.
    template <typename Event>
    bool sendDrag(QPoint at, const QMimeData& pasteboard)
    {
        const auto actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(at, actions, &pasteboard, Qt::LeftButton, {});
        QApplication::sendEvent(m_table.viewport(), &enter);
        Event event(at, actions, &pasteboard, Qt::LeftButton, {});
        event.ignore();
        QApplication::sendEvent(m_table.viewport(), &event);
        QDragLeaveEvent leave;
        QApplication::sendEvent(m_table.viewport(), &leave);
        EXPECT_EQ(event.isAccepted(), event.dropAction() == Qt::MoveAction);
        return event.isAccepted();
    }

    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
};

} // namespace

TEST_F(RowMoveFreely, drag_carriesTheRowAsDecimalText_whenStarted)
{
    dragOut(3);
    ASSERT_EQ(m_table.m_drags.size(), 1U);
    const QMimeData& pasteboard = *m_table.m_drags[0].pasteboard;
    EXPECT_EQ(pasteboard.formats(), QStringList(QStringLiteral("RQTableViewPrivatePBoardType")));
    EXPECT_EQ(pasteboard.data(QStringLiteral("RQTableViewPrivatePBoardType")), "3");
    EXPECT_EQ(m_table.draggedRow(), 3);
    EXPECT_EQ(selectedRows(), std::vector<int>{3});
    EXPECT_TRUE(m_table.hasFocus());
    EXPECT_FALSE(m_table.isMovingRow());
}

TEST_F(RowMoveFreely, drag_offersCopyingAndMoving_andProposesToMove)
{
    dragOut(3);
    ASSERT_EQ(m_table.m_drags.size(), 1U);
    EXPECT_EQ(m_table.m_drags[0].allowed, Qt::CopyAction | Qt::MoveAction);
    EXPECT_EQ(m_table.m_drags[0].proposed, Qt::MoveAction);
}

TEST_F(RowMoveFreely, mouse_selectsNothing_whenItsDragIsOver)
{
    press(onRow(1));
    drag(onRow(3));
    EXPECT_EQ(selectedRows(), std::vector<int>{1});
    drag(onRow(4));
    release(onRow(4));
    EXPECT_EQ(selectedRows(), std::vector<int>{1});
}

TEST_F(RowMoveFreely, drag_showsWhatIsInSight_whenScrolledSideways)
{
    m_model.setColumnCount(2);
    m_table.horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    for (const int column : {0, 1})
        m_table.horizontalHeader()->resizeSection(column, width);
    QApplication::processEvents();
    m_table.setCurrentIndex(m_model.index(0, 1)); // brings the second column into view
    ASSERT_EQ(m_table.visibleRect().x(), width);
    dragOut(2);
    ASSERT_EQ(m_table.m_drags.size(), 1U);
    EXPECT_EQ(m_table.visibleRect().x(), width);
    EXPECT_EQ(m_table.m_drags[0].image.size(), QSize(width, rowHeight));
    EXPECT_EQ(m_table.m_drags[0].hotSpot, QPoint(width / 2 - 30, rowHeight / 2 + 4));
}

TEST_F(RowMoveFreely, drag_keepsTheRowUnderTheMouse_whenItHadToComeIntoView)
{
    m_table.verticalScrollBar()->setValue(rowHeight / 2); // rows 0 and 5 are cut
    press({width / 2, visibleRows * rowHeight - 2});
    m_timers.advance(0.1);
    ASSERT_EQ(m_table.m_drags.size(), 1U);
    EXPECT_EQ(offset(), rowHeight);
    EXPECT_EQ(m_table.m_drags[0].hotSpot, QPoint(width / 2, rowHeight - 2)); // the row is at the lower edge
}

TEST_F(RowMoveFreely, drag_showsTheRowAtItsPlace_whenTheDelegateHasNoPicture)
{
    RowMoveDelegate pictureless = delegate();
    pictureless.tableViewImageForRow = [](RQTableViewRowMove&, int) { return QPixmap(); };
    for (const RowMoveDelegate& each : {delegate(), pictureless}) {
        m_table.m_drags.clear();
        m_table.setRowMoveDelegate(each);
        dragOut(2);
        ASSERT_EQ(m_table.m_drags.size(), 1U);
        EXPECT_EQ(m_table.m_drags[0].image.size(), QSize(width, rowHeight));
        EXPECT_EQ(m_table.m_drags[0].hotSpot, QPoint(width / 2 - 30, rowHeight / 2 + 4));
    }
}

TEST_F(RowMoveFreely, drag_showsTheDelegatesPictureCentredOnTheMouse_whenThereIsOne)
{
    RowMoveDelegate picturing = delegate();
    picturing.tableViewImageForRow = [](RQTableViewRowMove&, int row) { return QPixmap(10 * row, 6); };
    m_table.setRowMoveDelegate(picturing);
    dragOut(4);
    ASSERT_EQ(m_table.m_drags.size(), 1U);
    EXPECT_EQ(m_table.m_drags[0].image.size(), QSize(40, 6));
    EXPECT_EQ(m_table.m_drags[0].hotSpot.x(), 20);
    EXPECT_EQ(m_table.m_drags[0].hotSpot.y(), 6 - rowHeight / 2 + 4); // lower edges meet
}

TEST_F(RowMoveFreely, drag_isNone_whenTheDelegateRefusesOrTheKeyIsMissing)
{
    m_may = false;
    dragOut(2);
    m_may = true;
    m_table.setNeedsCommandKey(true);
    dragOut(2);
    EXPECT_TRUE(m_table.m_drags.empty());
}

TEST_F(RowMoveFreely, drag_asksOnceOnly_whenItLastsLong)
{
    dragOut(2);
    m_timers.advance(1);
    EXPECT_EQ(m_asked.size(), 1U);
    EXPECT_EQ(m_table.m_drags.size(), 1U);
}

TEST_F(RowMoveFreely, copyRow_writesTheDelegatesTypes_whenItNamesSome)
{
    RowMoveDelegate writing = delegate();
    writing.dragTypesOfTable = [](RQTableViewRowMove&) { return QStringList{textType, emptyType}; };
    writing.tableViewObjectForType = [](RQTableViewRowMove&, const QString& type) {
        return QVariant(QStringLiteral("of ") + type);
    };
    writing.tableViewPboardSelectorForType = [](RQTableViewRowMove&, const QString& type) {
        PasteboardWriter writer;
        if (type == textType)
            writer.write = [](QMimeData& pasteboard, const QVariant& object, const QString& as) {
                pasteboard.setData(as, object.toByteArray());
                return true;
            };
        return writer;
    };
    m_table.setRowMoveDelegate(writing);
    QMimeData pasteboard;
    pasteboard.setData(QStringLiteral("application/x-old"), "old");
    EXPECT_TRUE(m_table.copyRowToPasteboard(7, pasteboard));
    EXPECT_EQ(pasteboard.data(textType), "of text/plain");
    EXPECT_TRUE(pasteboard.hasFormat(emptyType)); // a method that the pasteboard does not have
    EXPECT_EQ(pasteboard.data(emptyType), "");
    EXPECT_EQ(pasteboard.data(RQTableViewRowMove::privatePasteboardType), "7");
    EXPECT_FALSE(pasteboard.hasFormat(QStringLiteral("application/x-old")));
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(RowMoveFreely, copyRow_leavesATypeEmpty_whenTheDelegateLacksEitherMessage)
{
    int written = 0;
    RowMoveDelegate naming = delegate();
    naming.dragTypesOfTable = [](RQTableViewRowMove&) { return QStringList{emptyType}; };
    RowMoveDelegate withObject = naming;
    withObject.tableViewObjectForType = [](RQTableViewRowMove&, const QString&) { return QVariant(1); };
    RowMoveDelegate withMethod = naming;
    withMethod.tableViewPboardSelectorForType = [&](RQTableViewRowMove&, const QString&) {
        return PasteboardWriter{{}, [&](QMimeData&, const QVariant&, const QString&) { return ++written; }};
    };
    for (const RowMoveDelegate& each : {naming, withObject, withMethod}) {
        m_table.setRowMoveDelegate(each);
        QMimeData pasteboard;
        EXPECT_TRUE(m_table.copyRowToPasteboard(0, pasteboard));
        EXPECT_TRUE(pasteboard.hasFormat(emptyType));
        EXPECT_EQ(pasteboard.data(emptyType), "");
    }
    EXPECT_EQ(written, 0);
}

TEST_F(RowMoveFreely, copyRow_logsTheMethodTheObjectAndTheType_whenWritingFails)
{
    RowMoveDelegate failing = delegate();
    failing.dragTypesOfTable = [](RQTableViewRowMove&) { return QStringList{textType}; };
    failing.tableViewObjectForType = [](RQTableViewRowMove&, const QString&) {
        return QVariant(QStringLiteral("row 2"));
    };
    failing.tableViewPboardSelectorForType = [](RQTableViewRowMove&, const QString&) {
        return PasteboardWriter{QStringLiteral("setString:forType:"),
                                [](QMimeData&, const QVariant&, const QString&) { return false; }};
    };
    m_table.setRowMoveDelegate(failing);
    QMimeData pasteboard;
    EXPECT_TRUE(m_table.copyRowToPasteboard(2, pasteboard));
    EXPECT_EQ(m_log,
              QStringList(QStringLiteral("RQ_LOG: Error during setString:forType: : row 2, text/plain")));
}

TEST_F(RowMoveFreely, drag_isNone_whenTheRowCannotBeWritten)
{
    class Refusing final : public QMimeData {
        QVariant retrieveData(const QString&, QMetaType) const override { return {}; }
    } refusing;
    EXPECT_FALSE(m_table.copyRowToPasteboard(2, refusing));
}

TEST_F(RowMoveFreely, sourceMask_isCopyOrGeneric_everywhere)
{
    EXPECT_EQ(m_table.draggingSourceOperationMaskForLocal(true), 5);
    EXPECT_EQ(m_table.draggingSourceOperationMaskForLocal(false), 5);
}

TEST_F(RowMoveFreely, types_areAccepted_whenTheyHoldThePrivateOne)
{
    const QString own = RQTableViewRowMove::privatePasteboardType;
    EXPECT_TRUE(m_table.acceptsTypesForSender({textType, own}, nullptr));
    EXPECT_FALSE(m_table.acceptsTypesForSender({textType}, &m_table));
    EXPECT_TRUE(IncludesType({textType, own}, textType));
    EXPECT_FALSE(IncludesType({}, own));
}

TEST_F(RowMoveFreely, entering_isGeneric_whenThePasteboardHoldsThePrivateType)
{
    QMimeData own;
    own.setData(RQTableViewRowMove::privatePasteboardType, "1");
    QMimeData other;
    other.setText(QStringLiteral("1"));
    EXPECT_EQ(m_table.draggingEntered(own), 4);
    EXPECT_EQ(m_table.draggingEntered(other), 0);
    EXPECT_TRUE(sendDrag<QDragEnterEvent>(onRow(1), own));
    EXPECT_FALSE(sendDrag<QDragEnterEvent>(onRow(1), other));
}

TEST_F(RowMoveFreely, updating_asksTheDelegate_whereThePointIs)
{
    Rows asked;
    RowMoveDelegate choosing = delegate();
    choosing.tableViewDraggingRowOverRow = [&](RQTableViewRowMove&, int dragged, int row) {
        asked.push_back({dragged, row});
        return row == 2;
    };
    m_table.setRowMoveDelegate(choosing);
    dragOut(3);
    EXPECT_EQ(m_table.draggingUpdated(onRow(2)), 4);
    EXPECT_EQ(m_table.draggingUpdated(onRow(1)), 0);
    EXPECT_EQ(m_table.draggingUpdated({-5, 50}), 0);
    EXPECT_EQ(asked, (Rows{{3, 2}, {3, 1}, {3, -1}}));
    EXPECT_TRUE(sendDrag<QDragMoveEvent>(onRow(2), *m_table.m_drags[0].pasteboard));
    EXPECT_FALSE(sendDrag<QDragMoveEvent>(onRow(1), *m_table.m_drags[0].pasteboard));
}

TEST_F(RowMoveFreely, updating_refuses_whenTheDelegateCannotSay)
{
    EXPECT_EQ(m_table.draggingUpdated(onRow(2)), 0);
}

TEST_F(RowMoveFreely, updating_scrollsByARow_whenAQuarterRowFromAnEdge)
{
    m_table.verticalScrollBar()->setValue(100);
    (void)m_table.draggingUpdated({50, 105});
    EXPECT_EQ(offset(), 100); // a quarter of a row is not less than one
    (void)m_table.draggingUpdated({50, 104});
    EXPECT_EQ(offset(), 80);
    (void)m_table.draggingUpdated({50, 175});
    EXPECT_EQ(offset(), 80);
    (void)m_table.draggingUpdated({50, 176});
    EXPECT_EQ(offset(), 100);
}

TEST_F(RowMoveFreely, updating_scrolls_whenBesideTheRowsAtAnEdge)
{
    m_table.verticalScrollBar()->setValue(100);
    (void)m_table.draggingUpdated({-5, 102});
    EXPECT_EQ(offset(), 80);
}

TEST_F(RowMoveFreely, updating_showsTheFirstAndTheLastRow_whenOverThem)
{
    m_table.verticalScrollBar()->setValue(10);
    (void)m_table.draggingUpdated({50, 15});
    EXPECT_EQ(offset(), 0);
    m_table.verticalScrollBar()->setValue(290);
    (void)m_table.draggingUpdated({50, 382});
    EXPECT_EQ(offset(), 300);
}

TEST_F(RowMoveFreely, drop_depositsTheDraggedRow_whenPerformed)
{
    dragOut(3);
    EXPECT_TRUE(sendDrag<QDropEvent>(onRow(1), *m_table.m_drags[0].pasteboard));
    EXPECT_EQ(m_deposits, (Rows{{3, 1}}));
    EXPECT_EQ(firstRows(), "0 3 1 2 4");
    EXPECT_FALSE(m_table.performDragOperation({-5, 10}));
    EXPECT_FALSE(sendDrag<QDropEvent>(onRow(3), *m_table.m_drags[0].pasteboard)); // its own row
}

TEST_F(RowMoveFreely, end_isLoggedWithItsPoint_whenTheDragEnds)
{
    m_table.draggedImageEndedAtDeposited({12.5, 7}, false);
    m_table.draggedImageEndedAtDeposited({-1, 0.25}, true);
    EXPECT_EQ(m_log, (QStringList{QStringLiteral("end 12.500000 7.000000"),
                                  QStringLiteral("end -1.000000 0.250000")}));
}

TEST_F(RowMoveFreely, end_isLogged_whenADragWasRun)
{
    dragOut(2);
    m_table.m_dropAction = Qt::IgnoreAction; // nobody took it
    dragOut(3);
    ASSERT_EQ(m_log.size(), 2);
    for (const QString& line : m_log)
        EXPECT_TRUE(line.startsWith(QStringLiteral("end "))) << qPrintable(line);
}

} // namespace kestro
