// Selecting, deleting and moving the rows of the sheet's playlist.

#include "config_ui/ConfigSheetFixture.h"
#include "config_ui/PlaylistPane.h"

namespace kestro {

namespace {

class ConfigSheetRowsTest : public ConfigSheetFixture {};

} // namespace

TEST_F(ConfigSheetRowsTest, deleteKey_deletesTheSelectedRows)
{
    open({movie("0"), movie("1"), movie("2"), movie("3")});
    select({0, 2});
    QTest::keyClick(&table(), Qt::Key_Delete);
    EXPECT_EQ(listed(), (QStringList{movie("1"), movie("3")}));
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{0});
}

TEST_F(ConfigSheetRowsTest, deleteButton_isForASelectionOnly)
{
    open({movie("0"), movie("1")});
    table().clearSelection();
    EXPECT_FALSE(isEnabled("deleteBtn"));
    select({1});
    click("deleteBtn");
    EXPECT_EQ(listed(), QStringList{movie("0")});
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{0});
    click("deleteBtn");
    EXPECT_TRUE(listed().isEmpty());
    EXPECT_FALSE(isEnabled("deleteBtn"));
}

TEST_F(ConfigSheetRowsTest, sheet_opensWithTheRowSelectedThatTheKeysStartFrom)
{
    open({movie("0"), movie("1"), movie("2")});
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{0});
    QTest::keyClick(&table(), Qt::Key_Down);
    QTest::keyClick(&table(), Qt::Key_Delete);
    sheet->reject();
    table().clearSelection();
    sheet->open();
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{table().currentIndex().row()});
    open({});
    EXPECT_TRUE(sheet->playlist().selectedRows().isEmpty());
}

TEST_F(ConfigSheetRowsTest, homeAndEnd_goToTheEndsOfTheList)
{
    open({movie("0"), movie("1"), movie("2")});
    QTest::keyClick(&table(), Qt::Key_End);
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{2});
    EXPECT_EQ(table().currentIndex().row(), 2);
    QTest::keyClick(&table(), Qt::Key_Home);
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{0});
}

TEST_F(ConfigSheetRowsTest, altDown_movesTheRow)
{
    open({movie("0"), movie("1"), movie("2")});
    EXPECT_TRUE(table().needsCommandKey());
    table().setFocus();
    table().selectRow(0);
    QTest::keyClick(&table(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(listed(), (QStringList{movie("1"), movie("0"), movie("2")}));
    QTest::keyClick(&table(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(listed(), (QStringList{movie("1"), movie("2"), movie("0")}));
    QTest::keyClick(&table(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(listed(), (QStringList{movie("1"), movie("0"), movie("2")}));
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{1});
}

TEST_F(ConfigSheetRowsTest, shift_extendsFromTheRowsThatWereAdded)
{
    open({movie("0"), movie("1"), movie("2")});
    sheet->playlist().showFrom(1);
    QTest::keyClick(&table(), Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{1});
    sheet->playlist().showFrom(2);
    QTest::keyClick(&table(), Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(&table(), Qt::Key_Delete);
    EXPECT_EQ(listed(), QStringList{movie("0")});
}

TEST_F(ConfigSheetRowsTest, shift_extendsFromTheRowThatIsSelectedAfterADeletion)
{
    open({movie("0"), movie("1"), movie("2"), movie("3")});
    QTest::keyClick(&table(), Qt::Key_Down);
    QTest::keyClick(&table(), Qt::Key_Delete);
    QTest::keyClick(&table(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(sheet->playlist().selectedRows(), (QList<int>{1, 2}));
}

TEST_F(ConfigSheetRowsTest, drag_movesTheRowToWhereItWasDropped)
{
    open({movie("0"), movie("1"), movie("2"), movie("3")});
    EXPECT_TRUE(table().startRowEndedAt(0, 2));
    EXPECT_EQ(listed(), (QStringList{movie("1"), movie("2"), movie("0"), movie("3")}));
}

} // namespace kestro
