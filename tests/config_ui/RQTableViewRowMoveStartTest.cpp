#include "config_ui/RQTableViewRowMoveFixture.h"

#include <QTranslator>

namespace kestro {

using test::RowMoveTest;

TEST_F(RowMoveTest, switches_areOff_whenMade)
{
    EXPECT_FALSE(m_table.needsCommandKey());
    EXPECT_FALSE(m_table.needsMoveFreely());
    EXPECT_EQ(m_table.draggedRow(), 0);
}

TEST_F(RowMoveTest, press_selectsAndMovesNothing_whenReleasedAtOnce)
{
    press(onRow(2));
    release(onRow(2));
    m_timers.advance(1);
    EXPECT_EQ(selectedRows(), std::vector<int>{2});
    EXPECT_EQ(m_asked, none);
    EXPECT_FALSE(m_table.isMovingRow());
}

TEST_F(RowMoveTest, press_addsToTheSelection_whenClickedWithControl)
{
    press(onRow(1));
    release(onRow(1));
    press(onRow(3), Qt::ControlModifier);
    release(onRow(3));
    EXPECT_EQ(selectedRows(), (std::vector<int>{1, 3}));
}

TEST_F(RowMoveTest, press_startsAMove_whenTheMouseIsDragged)
{
    press(onRow(2));
    EXPECT_FALSE(m_table.isMovingRow());
    drag(onRow(2) + QPoint(1, 0));
    EXPECT_TRUE(m_table.isMovingRow());
    EXPECT_EQ(m_asked, (Rows{{2, 0}}));
    EXPECT_EQ(m_table.draggedRow(), 2);
}

TEST_F(RowMoveTest, press_startsAMove_whenHeldStillForATenthOfASecond)
{
    press(onRow(1));
    m_timers.advance(0.099);
    EXPECT_FALSE(m_table.isMovingRow());
    m_timers.advance(0.001);
    EXPECT_TRUE(m_table.isMovingRow());
}

TEST_F(RowMoveTest, press_asksOnceOnly_whenHeldForLong)
{
    press(onRow(1));
    m_timers.advance(1);
    EXPECT_EQ(m_asked.size(), 1U);
}

TEST_F(RowMoveTest, press_isNoDrag_whenTheMouseReportsTheSamePlace)
{
    press(onRow(2));
    drag(onRow(2));
    EXPECT_FALSE(m_table.isMovingRow());
    release(onRow(2));
    EXPECT_EQ(m_asked, none);
}

TEST_F(RowMoveTest, drag_movesNothing_whenTheKeyIsNeededAndNotHeld)
{
    m_table.setNeedsCommandKey(true);
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier),
          Qt::ShiftModifier | Qt::MetaModifier}) {
        dragRow(0, 2, modifiers);
        EXPECT_EQ(m_asked, none);
        EXPECT_EQ(m_deposits, none);
    }
}

TEST_F(RowMoveTest, drag_movesTheRow_whenTheKeyIsNeededAndHeldAtThePress)
{
    m_table.setNeedsCommandKey(true);
    dragRow(0, 2, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(m_deposits, (Rows{{0, 2}}));
    EXPECT_EQ(firstRows(), "1 2 0 3 4");
}

TEST_F(RowMoveTest, press_selectsAtOnce_whenTheKeyIsNeededAndNotHeld)
{
    m_table.setNeedsCommandKey(true);
    press(onRow(2));
    EXPECT_EQ(selectedRows(), std::vector<int>{2});
}

TEST_F(RowMoveTest, drag_selectsRows_whenTheDelegateRefuses)
{
    m_may = false;
    press(onRow(1));
    drag(onRow(1) + QPoint(0, 2));
    EXPECT_FALSE(m_table.isMovingRow());
    drag(onRow(3));
    release(onRow(3));
    EXPECT_EQ(selectedRows(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(m_asked.size(), 1U);
    EXPECT_EQ(m_deposits, none);
}

TEST_F(RowMoveTest, move_asksForTheRowAndTheColumnUnderThePress)
{
    m_model.setColumnCount(2);
    dragRow(3, 4);
    press({width * 3 / 4, onRow(2).y()});
    m_timers.advance(0.1);
    EXPECT_EQ(m_asked, (Rows{{3, 1}, {2, 1}})); // the middle is where the second column begins
}

TEST_F(RowMoveTest, move_isNone_whenThePressIsOnNoRow)
{
    setRows(2);
    EXPECT_FALSE(m_table.move({RowMoveEvent::Type::LeftMouseDown, onRow(3), {}, 0}));
    EXPECT_EQ(m_asked, none);
    EXPECT_TRUE(m_table.move({RowMoveEvent::Type::LeftMouseDown, onRow(1), {}, 0}));
}

TEST_F(RowMoveTest, press_isNoDrag_whenTheMouseMovesWithoutTheButton)
{
    m_table.viewport()->setMouseTracking(true);
    press(onRow(2));
    send(QEvent::MouseMove, onRow(3), Qt::NoButton, Qt::NoButton);
    EXPECT_FALSE(m_table.isMovingRow());
    EXPECT_EQ(m_asked, none);
}

TEST_F(RowMoveTest, press_isStillAwaited_whenAnotherButtonIsReleased)
{
    press(onRow(2));
    send(QEvent::MouseButtonRelease, onRow(2), Qt::RightButton, Qt::LeftButton);
    EXPECT_TRUE(selectedRows().empty());
    m_timers.advance(0.1);
    EXPECT_TRUE(m_table.isMovingRow());
}

TEST_F(RowMoveTest, press_selects_whenHeldAndTheDelegateRefuses)
{
    m_may = false;
    press(onRow(3));
    EXPECT_TRUE(selectedRows().empty());
    m_timers.advance(0.1);
    EXPECT_EQ(selectedRows(), std::vector<int>{3});
}

TEST_F(RowMoveTest, drag_movesNothing_whenThereIsNoDelegate)
{
    m_table.setRowMoveDelegate({});
    dragRow(0, 2);
    EXPECT_FALSE(m_table.isMovingRow());
    EXPECT_EQ(firstRows(), "0 1 2 3 4");
    EXPECT_EQ(selectedRows(), (std::vector<int>{0, 1, 2}));
}

TEST_F(RowMoveTest, drag_movesNothing_whenPressedBelowTheLastRow)
{
    setRows(2);
    press(onRow(3));
    drag(onRow(0));
    release(onRow(0));
    EXPECT_EQ(m_asked, none);
    EXPECT_EQ(m_deposits, none);
}

TEST_F(RowMoveTest, drag_movesNothing_whenAnotherButtonIsDown)
{
    send(QEvent::MouseButtonPress, onRow(0), Qt::RightButton, Qt::RightButton);
    send(QEvent::MouseMove, onRow(2), Qt::NoButton, Qt::RightButton);
    m_timers.advance(1);
    EXPECT_EQ(m_asked, none);
}

TEST_F(RowMoveTest, doubleClick_reachesTheTable_whenReleasedAtOnce)
{
    int doubleClicks = 0;
    QObject::connect(&m_table, &QAbstractItemView::doubleClicked, [&] { ++doubleClicks; });
    press(onRow(1));
    release(onRow(1));
    send(QEvent::MouseButtonDblClick, onRow(1), Qt::LeftButton, Qt::LeftButton);
    release(onRow(1));
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(m_asked, none);
}

TEST_F(RowMoveTest, doubleClick_startsAMove_whenDragged)
{
    send(QEvent::MouseButtonDblClick, onRow(1), Qt::LeftButton, Qt::LeftButton);
    drag(onRow(2));
    EXPECT_TRUE(m_table.isMovingRow());
}

TEST_F(RowMoveTest, press_startsAMove_whenTheWindowIsNotInFront)
{
    QWidget other;
    other.show();
    other.activateWindow();
    QApplication::processEvents();
    ASSERT_FALSE(m_table.isActiveWindow());
    EXPECT_TRUE(m_table.acceptsFirstMouse());
    EXPECT_TRUE(m_table.acceptsFirstResponder());
    dragRow(0, 1);
    EXPECT_EQ(m_deposits, (Rows{{0, 1}}));
}

TEST_F(RowMoveTest, move_takesTheKeyboardAndSelectsItsRowAlone_whenItStarts)
{
    m_table.selectAll();
    m_table.clearFocus();
    press(onRow(2), Qt::ControlModifier);
    drag(onRow(3));
    EXPECT_TRUE(m_table.hasFocus());
    EXPECT_EQ(selectedRows(), std::vector<int>{2});
}

TEST_F(RowMoveTest, move_showsItsRowWhole_whenPressedOnOneHalfOutOfView)
{
    m_table.verticalScrollBar()->setValue(10); // rows 0 and 5 are cut
    press({width / 2, visibleRows * rowHeight - 2});
    m_timers.advance(0.1);
    EXPECT_EQ(m_table.draggedRow(), 5);
    EXPECT_EQ(offset(), rowHeight);
}

TEST_F(RowMoveTest, hint_namesTheKey_whenItIsNeeded)
{
    EXPECT_FALSE(m_table.toolTip().contains(QStringLiteral("Alt held")));
    EXPECT_TRUE(m_table.toolTip().contains(QStringLiteral("Alt+Up and Alt+Down")));
    m_table.setNeedsCommandKey(true);
    EXPECT_TRUE(m_table.toolTip().contains(QStringLiteral("dragging with Alt held")));
    EXPECT_TRUE(m_table.toolTip().contains(QStringLiteral("Alt+Up and Alt+Down")));
    EXPECT_EQ(m_table.accessibleDescription(), m_table.toolTip());
}

TEST_F(RowMoveTest, hint_isSaidAnew_whenTheLanguageChanges)
{
    class Shouting final : public QTranslator {
        QString translate(const char*, const char* text, const char*, int) const override
        {
            return QString::fromLatin1(text).toUpper();
        }
        bool isEmpty() const override { return false; }
    } shouting;
    const QString before = m_table.toolTip();
    QApplication::installTranslator(&shouting);
    QApplication::processEvents();
    EXPECT_EQ(m_table.toolTip(), before.toUpper());
    EXPECT_EQ(m_table.accessibleDescription(), before.toUpper());
    QApplication::removeTranslator(&shouting);
}

} // namespace kestro
