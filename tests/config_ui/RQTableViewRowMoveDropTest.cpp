#include "config_ui/RQTableViewRowMoveFixture.h"
#include "support/WaitUntil.h"

namespace kestro {

using test::RowMoveTest;

TEST_F(RowMoveTest, drop_tellsBothRowsAsTheyWere_whenMovedDown)
{
    dragRow(0, 2);
    EXPECT_EQ(m_deposits, (Rows{{0, 2}}));
    EXPECT_EQ(firstRows(), "1 2 0 3 4");
    EXPECT_EQ(selectedRows(), std::vector<int>{2});
    EXPECT_FALSE(m_table.isMovingRow());
}

TEST_F(RowMoveTest, drop_tellsBothRowsAsTheyWere_whenMovedUp)
{
    dragRow(3, 1);
    EXPECT_EQ(m_deposits, (Rows{{3, 1}}));
    EXPECT_EQ(firstRows(), "0 3 1 2 4");
    EXPECT_EQ(selectedRows(), std::vector<int>{1});
}

TEST_F(RowMoveTest, drop_tellsNothing_whenOnTheRowItself)
{
    bool isAsked = false;
    RowMoveDelegate asking = delegate();
    asking.tableViewWillDepositRowAt = [&](RQTableViewRowMove&, int, int) { return isAsked = true; };
    m_table.setRowMoveDelegate(asking);
    dragRow(1, 1);
    EXPECT_FALSE(isAsked);
    EXPECT_EQ(m_deposits, none);
    EXPECT_FALSE(m_table.isMovingRow());
}

TEST_F(RowMoveTest, drop_takesTheRowUnderThePicture_whenTheMouseIsOnNone)
{
    press(onRow(3));
    drag({-50, onRow(1).y()});
    release({-50, onRow(1).y()});
    EXPECT_EQ(m_deposits, (Rows{{3, 1}}));
}

TEST_F(RowMoveTest, drop_tellsNothing_whenTheMouseIsOnNoneAndThePictureAtItsOldPlace)
{
    press(onRow(3));
    drag({-50, onRow(3).y()});
    release({-50, onRow(3).y()});
    EXPECT_EQ(m_deposits, none);
}

TEST_F(RowMoveTest, drop_tellsNothing_whenBelowTheLastRow)
{
    setRows(3);
    dragRow(0, 4);
    EXPECT_EQ(m_deposits, none);
    EXPECT_EQ(selectedRows(), std::vector<int>{0});
}

TEST_F(RowMoveTest, drop_goesOn_whenTheDelegateAgrees)
{
    Rows asked;
    RowMoveDelegate agreeing = delegate();
    agreeing.tableViewWillDepositRowAt = [&](RQTableViewRowMove& table, int from, int to) {
        EXPECT_EQ(&table, &m_table);
        asked.push_back({from, to});
        return true;
    };
    m_table.setRowMoveDelegate(agreeing);
    dragRow(0, 1);
    EXPECT_EQ(asked, (Rows{{0, 1}}));
    EXPECT_EQ(m_deposits, (Rows{{0, 1}}));
}

TEST_F(RowMoveTest, drop_leavesDataAndSelection_whenTheDelegateRefuses)
{
    RowMoveDelegate refusing = delegate();
    refusing.tableViewWillDepositRowAt = [](RQTableViewRowMove&, int, int) { return false; };
    m_table.setRowMoveDelegate(refusing);
    dragRow(0, 2);
    EXPECT_EQ(m_deposits, none);
    EXPECT_EQ(firstRows(), "0 1 2 3 4");
    EXPECT_EQ(selectedRows(), std::vector<int>{0});
}

TEST_F(RowMoveTest, drop_keepsTheSelection_whenTheDelegateFails)
{
    m_deposited = false;
    EXPECT_FALSE(m_table.startRowEndedAt(0, 2));
    dragRow(0, 2);
    EXPECT_EQ(selectedRows(), std::vector<int>{0});
    EXPECT_EQ(firstRows(), "0 1 2 3 4");
}

TEST_F(RowMoveTest, drop_fails_whenTheDelegateCannotTakeIt)
{
    RowMoveDelegate mute = delegate();
    mute.tableViewDidDepositRowAt = nullptr;
    m_table.setRowMoveDelegate(mute);
    EXPECT_FALSE(m_table.startRowEndedAt(0, 2));
    EXPECT_TRUE(selectedRows().empty());
}

TEST_F(RowMoveTest, drop_reloadsTheTableOnce_whenTheDelegateHasTakenIt)
{
    m_deposited = false;
    (void)m_table.startRowEndedAt(0, 2);
    const int before = m_table.m_reloads;
    m_deposited = true;
    (void)m_table.startRowEndedAt(0, 2);
    EXPECT_EQ(m_table.m_reloads, before + 1);
}

TEST_F(RowMoveTest, drop_reloadsNothing_whenTheDelegateHasNotTakenIt)
{
    m_deposited = false;
    const int before = m_table.m_reloads;
    (void)m_table.startRowEndedAt(0, 2);
    EXPECT_EQ(m_table.m_reloads, before);
}

TEST_F(RowMoveTest, startRowEndedAt_refuses_whenThereIsNoOtherRow)
{
    EXPECT_FALSE(m_table.startRowEndedAt(2, -1));
    EXPECT_FALSE(m_table.startRowEndedAt(2, 2));
    EXPECT_EQ(m_deposits, none);
    EXPECT_TRUE(m_table.startRowEndedAt(2, 1));
}

TEST_F(RowMoveTest, keys_moveTheSelectedRow_whenAltIsHeld)
{
    m_table.selectRow(1);
    pressKey(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(m_asked, (Rows{{1, 0}}));
    EXPECT_EQ(m_deposits, (Rows{{1, 2}}));
    EXPECT_EQ(firstRows(), "0 2 1 3 4");
    pressKey(Qt::Key_Up, Qt::AltModifier | Qt::KeypadModifier);
    pressKey(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(firstRows(), "1 0 2 3 4");
    EXPECT_EQ(selectedRows(), std::vector<int>{0});
}

TEST_F(RowMoveTest, keys_nameTheRowThatMoves)
{
    m_model.setColumnCount(2);
    m_table.setCurrentIndex(m_model.index(3, 1));
    pressKey(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(m_asked, (Rows{{3, 1}}));
    EXPECT_EQ(m_table.draggedRow(), 3);
}

TEST_F(RowMoveTest, keys_followTheRow_whenItLeavesTheVisiblePart)
{
    m_table.selectRow(visibleRows - 1);
    pressKey(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(offset(), rowHeight);
}

TEST_F(RowMoveTest, keys_askTheDelegate_whenAltIsHeld)
{
    m_may = false;
    m_table.selectRow(1);
    pressKey(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(m_asked.size(), 1U);
    EXPECT_EQ(m_deposits, none);
}

TEST_F(RowMoveTest, shift_extendsFromTheRowThatWasDropped)
{
    press(onRow(0));
    release(onRow(0));
    dragRow(4, 2);
    pressKey(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(), (std::vector<int>{2, 3}));
    dragRow(4, 2);
    press(onRow(4), Qt::ShiftModifier);
    release(onRow(4));
    EXPECT_EQ(selectedRows(), (std::vector<int>{2, 3, 4}));
}

TEST_F(RowMoveTest, shift_extendsFromTheRowThatTheKeysHaveMoved)
{
    press(onRow(3));
    release(onRow(3));
    pressKey(Qt::Key_Up, Qt::AltModifier);
    pressKey(Qt::Key_Up, Qt::AltModifier);
    pressKey(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(), (std::vector<int>{1, 2}));
}

TEST_F(RowMoveTest, shift_extendsFromTheRowWhoseMoveWasGivenUp)
{
    press(onRow(0));
    release(onRow(0));
    press(onRow(3));
    drag(onRow(1));
    pressKey(Qt::Key_Escape, Qt::NoModifier);
    release(onRow(1));
    pressKey(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(), (std::vector<int>{3, 4}));
}

TEST_F(RowMoveTest, keys_moveNothing_whenAtAnEnd)
{
    m_table.selectRow(0);
    pressKey(Qt::Key_Up, Qt::AltModifier);
    m_table.selectRow(19);
    pressKey(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(m_deposits, none);
}

TEST_F(RowMoveTest, keys_moveNothing_whenSeveralRowsAreSelected)
{
    m_table.selectAll();
    pressKey(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(m_deposits, none);
    EXPECT_EQ(selectedRows().size(), 20U);
}

TEST_F(RowMoveTest, keys_onlySelect_whenAltIsNotHeldAlone)
{
    m_table.selectRow(1);
    pressKey(Qt::Key_Down, Qt::NoModifier);
    pressKey(Qt::Key_Down, Qt::AltModifier | Qt::ControlModifier);
    EXPECT_EQ(m_deposits, none);
    EXPECT_NE(selectedRows(), std::vector<int>{1});
}

TEST_F(RowMoveTest, move_endsWithoutADrop_whenEscapeIsPressed)
{
    press(onRow(0));
    drag(onRow(2));
    pressKey(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_FALSE(m_table.isMovingRow());
    release(onRow(2));
    EXPECT_EQ(m_deposits, none);
}

TEST_F(RowMoveTest, move_endsWithoutADrop_whenTheWindowLosesTheKeys)
{
    m_table.activateWindow();
    ASSERT_TRUE(waitUntil([this] { return m_table.isActiveWindow(); }));
    press(onRow(0));
    drag(onRow(2));
    ASSERT_TRUE(m_table.isMovingRow());
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(waitUntil([this] { return !m_table.isMovingRow(); }));
    release(onRow(2));
    EXPECT_EQ(m_deposits, none);
}

TEST_F(RowMoveTest, mouse_selectsNothing_whenItsMoveWasGivenUp)
{
    press(onRow(1));
    drag(onRow(2));
    pressKey(Qt::Key_Escape, Qt::NoModifier);
    drag(onRow(4));
    EXPECT_EQ(selectedRows(), std::vector<int>{1});
    release(onRow(4));
    EXPECT_EQ(selectedRows(), std::vector<int>{1});
    press(onRow(3));
    release(onRow(3));
    EXPECT_EQ(selectedRows(), std::vector<int>{3});
}

TEST_F(RowMoveTest, mouse_selectsAgain_whenItsMoveWasGivenUpAndTheNextPressStartsNone)
{
    press(onRow(1));
    drag(onRow(2));
    pressKey(Qt::Key_Escape, Qt::NoModifier);
    release(onRow(2));
    m_may = false;
    dragRow(2, 4);
    EXPECT_EQ(selectedRows(), (std::vector<int>{2, 3, 4}));
}

TEST_F(RowMoveTest, release_isNoClick_whenItsMoveWasGivenUp)
{
    int clicks = 0;
    QObject::connect(&m_table, &QAbstractItemView::clicked, [&] { ++clicks; });
    press(onRow(1));
    release(onRow(1));
    press(onRow(1));
    drag(onRow(2));
    pressKey(Qt::Key_Escape, Qt::NoModifier);
    release(onRow(1));
    EXPECT_EQ(clicks, 1);
}

TEST_F(RowMoveTest, move_goesOn_whenOtherKeysArePressed)
{
    press(onRow(0));
    drag(onRow(2));
    pressKey(Qt::Key_Down, Qt::AltModifier);
    pressKey(Qt::Key_Down, Qt::NoModifier);
    EXPECT_TRUE(m_table.isMovingRow());
    EXPECT_EQ(selectedRows(), std::vector<int>{0});
}

TEST_F(RowMoveTest, move_endsWithoutADrop_whenTheReleaseWentElsewhere)
{
    press(onRow(0));
    drag(onRow(2));
    send(QEvent::MouseMove, onRow(3), Qt::NoButton, Qt::NoButton);
    EXPECT_FALSE(m_table.isMovingRow());
    EXPECT_EQ(m_deposits, none);
}

TEST_F(RowMoveTest, mouse_isFollowedWithoutAButton_onlyWhileARowMoves)
{
    press(onRow(0));
    drag(onRow(2));
    EXPECT_TRUE(m_table.viewport()->hasMouseTracking());
    release(onRow(2));
    EXPECT_FALSE(m_table.viewport()->hasMouseTracking());
}

TEST_F(RowMoveTest, press_startsAnew_whenTheReleaseBeforeItWentElsewhere)
{
    press(onRow(0));
    drag(onRow(2));
    press(onRow(3));
    EXPECT_FALSE(m_table.isMovingRow());
    release(onRow(3));
    EXPECT_EQ(m_deposits, none);
    EXPECT_EQ(selectedRows(), std::vector<int>{3});
}

TEST_F(RowMoveTest, move_goesOn_whenAnotherButtonIsPressedAndReleased)
{
    press(onRow(0));
    drag(onRow(2));
    send(QEvent::MouseButtonPress, onRow(2), Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    send(QEvent::MouseButtonRelease, onRow(2), Qt::RightButton, Qt::LeftButton);
    EXPECT_TRUE(m_table.isMovingRow());
    release(onRow(2));
    EXPECT_EQ(m_deposits, (Rows{{0, 2}}));
}

TEST_F(RowMoveTest, move_endsWithoutADrop_whenTheDataChanges)
{
    const std::vector<std::function<void()>> changes{[this] { m_model.removeRow(0); },
                                                     [this] { m_model.insertRow(0, new QStandardItem); },
                                                     [this] { setRows(3); }};
    for (const auto& change : changes) {
        press(onRow(0));
        drag(onRow(2));
        ASSERT_TRUE(m_table.isMovingRow());
        change();
        EXPECT_FALSE(m_table.isMovingRow());
        release(onRow(2));
    }
    EXPECT_EQ(m_deposits, none);
}

TEST_F(RowMoveTest, move_endsWithoutADrop_whenTheTableIsHiddenOrDisabled)
{
    press(onRow(0));
    drag(onRow(2));
    m_table.hide();
    EXPECT_FALSE(m_table.isMovingRow());
    m_table.show();
    press(onRow(0));
    drag(onRow(2));
    m_table.setEnabled(false);
    EXPECT_FALSE(m_table.isMovingRow());
}

TEST_F(RowMoveTest, press_isForgotten_whenTheTableIsHidden)
{
    press(onRow(0));
    m_table.hide();
    m_timers.advance(1);
    EXPECT_EQ(m_asked, none);
}

} // namespace kestro
