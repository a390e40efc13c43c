#include "config_ui/RQTableViewRowMoveFixture.h"

#include <QAbstractTableModel>
#include <QWheelEvent>

namespace kestro {

using test::RowMoveTest;

namespace {

/// Rows without end, nearly, that count how often they are asked for something.
class ManyRows final : public QAbstractTableModel {
public:
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 10'000; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 1; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        ++m_questions;
        return role == Qt::DisplayRole ? QVariant(index.row()) : QVariant();
    }
    mutable int m_questions = 0;
};

constexpr int height = 100; // of the visible part

} // namespace

TEST_F(RowMoveTest, autoscroll_goesOnEveryTenthOfASecond_whenTheMouseStandsStillBelow)
{
    press(onRow(0));
    drag({width / 2, height + 30}); // 40 points of the row are below the visible part
    EXPECT_EQ(offset(), 40);
    m_timers.advance(0.099);
    EXPECT_EQ(offset(), 40);
    m_timers.advance(0.001);
    EXPECT_EQ(offset(), 80);
    m_timers.advance(0.2);
    EXPECT_EQ(offset(), 160);
}

TEST_F(RowMoveTest, autoscroll_goesUp_whenTheMouseStandsStillAbove)
{
    m_table.verticalScrollBar()->setValue(200);
    press(onRow(2));
    drag({width / 2, -10});
    EXPECT_EQ(offset(), 180);
    m_timers.advance(0.1);
    EXPECT_EQ(offset(), 160);
    m_timers.advance(2);
    EXPECT_EQ(offset(), 0);
}

TEST_F(RowMoveTest, autoscroll_ends_whenTheRowIsWhollyVisibleAgain)
{
    press(onRow(0));
    drag({width / 2, height + 30});
    drag(onRow(2));
    const int reached = offset();
    m_timers.advance(1);
    EXPECT_EQ(offset(), reached);
}

TEST_F(RowMoveTest, autoscroll_keepsItsPeriod_whenTheMouseMovesOnBelow)
{
    press(onRow(0));
    drag({width / 2, height + 30});
    m_timers.advance(0.05);
    drag({width / 2 + 1, height + 30});
    EXPECT_EQ(offset(), 80);
    m_timers.advance(0.05);
    EXPECT_EQ(offset(), 120); // a tenth of a second after it began, not after the mouse moved
}

TEST_F(RowMoveTest, autoscroll_beginsItsPeriodAnew_whenTheRowWasWhollyVisible)
{
    press(onRow(0));
    drag({width / 2, height + 30});
    drag(onRow(2));
    m_timers.advance(0.05);
    drag({width / 2, height + 30});
    const int reached = offset();
    m_timers.advance(0.099);
    EXPECT_EQ(offset(), reached);
    m_timers.advance(0.001);
    EXPECT_EQ(offset(), reached + 40);
}

TEST_F(RowMoveTest, autoscroll_endsAtTheLastRow_whenTheMouseStaysBelow)
{
    press(onRow(0));
    drag({width / 2, height + 30});
    m_timers.advance(5);
    EXPECT_EQ(offset(), 20 * rowHeight - height);
    release({width / 2, height + 30});
    EXPECT_EQ(m_deposits, (Rows{{0, 19}}));
}

TEST_F(RowMoveTest, autoscroll_ends_whenTheRowIsDropped)
{
    press(onRow(0));
    drag({width / 2, height + 30});
    release({width / 2, height + 30});
    const int reached = offset();
    m_timers.advance(1);
    EXPECT_EQ(offset(), reached);
    EXPECT_EQ(m_deposits, (Rows{{0, 8}})); // under the mouse: 40 scrolled, 130 down
}

TEST_F(RowMoveTest, autoscroll_isNone_whenTheRowIsWhollyVisible)
{
    press(onRow(0));
    drag(onRow(4));
    m_timers.advance(1);
    EXPECT_EQ(offset(), 0);
}

TEST_F(RowMoveTest, tableCache_isTakenAnew_whenTheTableScrolls)
{
    press(onRow(0));
    drag({width / 2, height + 30});
    const auto before = m_table.tableCache().cacheKey();
    m_timers.advance(0.1);
    EXPECT_NE(m_table.tableCache().cacheKey(), before);
    const auto scrolled = m_table.tableCache().cacheKey();
    drag(onRow(2));
    drag(onRow(3));
    EXPECT_EQ(m_table.tableCache().cacheKey(), scrolled);
}

TEST_F(RowMoveTest, wheel_scrollsUnderTheMovingRow_whenTurned)
{
    press(onRow(0));
    drag(onRow(2));
    const auto before = m_table.tableCache().cacheKey();
    QWheelEvent wheel(onRow(2), m_table.viewport()->mapToGlobal(QPointF(onRow(2))), {}, {0, -120},
                      Qt::LeftButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_table.viewport(), &wheel);
    ASSERT_GT(offset(), 0);
    EXPECT_NE(m_table.tableCache().cacheKey(), before);
    const int under = m_table.rowAtPoint(m_table.convertFromViewport(onRow(2)));
    release(onRow(2));
    EXPECT_EQ(m_deposits, (Rows{{0, under}}));
}

TEST_F(RowMoveTest, periodicEvent_hasTheGivenPlace_andElseIsTheSame)
{
    const RowMoveEvent event{RowMoveEvent::Type::Periodic, {1, 2}, Qt::AltModifier, 77};
    const RowMoveEvent copy = periodicEventWithLocationSetToPoint(event, {30, 40});
    EXPECT_EQ(copy.location, QPoint(30, 40));
    EXPECT_EQ(copy.type, RowMoveEvent::Type::Periodic);
    EXPECT_EQ(copy.modifiers, Qt::AltModifier);
    EXPECT_EQ(copy.timestamp, 77U);
}

TEST_F(RowMoveTest, scrollRectToVisible_scrollsAsLittleAsPossible_whenPartlyOutOfView)
{
    m_table.scrollRectToVisible(QRect(0, 95, width, rowHeight));
    EXPECT_EQ(offset(), 15);
    m_table.scrollRectToVisible(QRect(0, 50, width, rowHeight));
    EXPECT_EQ(offset(), 15);
    m_table.scrollRectToVisible(QRect(0, 5, width, rowHeight));
    EXPECT_EQ(offset(), 5);
    m_table.scrollRectToVisible(QRect(0, 0, width, 2 * height)); // already fills the view
    EXPECT_EQ(offset(), 5);
    m_table.scrollRectToVisible(QRect(0, 40, width, 2 * height));
    EXPECT_EQ(offset(), 40);
    m_table.scrollRectToVisible({});
    EXPECT_EQ(offset(), 40);
}

TEST_F(RowMoveTest, rowAtPoint_isNone_whenBesideOrBelowTheRows)
{
    setRows(3);
    EXPECT_EQ(m_table.rowAtPoint({10, 2 * rowHeight}), 2);
    EXPECT_EQ(m_table.rowAtPoint({10, 3 * rowHeight}), -1);
    EXPECT_EQ(m_table.rowAtPoint({10, -1}), -1);
    EXPECT_EQ(m_table.rowAtPoint({-1, 10}), -1);
    EXPECT_EQ(m_table.rowAtPoint({width, 10}), -1);
    EXPECT_TRUE(m_table.rectOfRow(3).isEmpty());
    EXPECT_TRUE(m_table.rectOfRow(-1).isEmpty());
}

TEST_F(RowMoveTest, move_asksForVisibleRowsOnly_whenThereAreTenThousand)
{
    ManyRows many;
    m_table.setModel(&many);
    QApplication::processEvents();
    RowMoveDelegate taking = delegate();
    taking.tableViewDidDepositRowAt = [](RQTableViewRowMove&, int, int) { return true; };
    m_table.setRowMoveDelegate(taking);

    many.m_questions = 0;
    press(onRow(0));
    drag({width / 2, height + 30});
    for (int step = 0; step < 10; ++step) {
        m_timers.advance(0.1);
        (void)screen();
    }
    EXPECT_GT(offset(), 400);
    release(onRow(2));
    (void)screen();
    EXPECT_LT(many.m_questions, 15 * 2 * visibleRows * 20); // steps, pictures, rows, roles
    m_table.setModel(&m_model);
}

} // namespace kestro
