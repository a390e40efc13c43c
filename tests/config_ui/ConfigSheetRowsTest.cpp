// Selecting, deleting and moving the rows of the sheet's playlist.

#include "config_ui/ConfigSheetFixture.h"
#include "config_ui/PlaylistPane.h"
#include "support/WaitUntil.h"

#include <QContextMenuEvent>
#include <QMenu>

namespace kestro {

namespace {

class ConfigSheetRowsTest : public ConfigSheetFixture {
protected:
    /// The menu that opens on a row, as the mouse asks for it.
    QMenu& menuOn(int row)
    {
        qDeleteAll(table().findChildren<QMenu*>(Qt::FindDirectChildrenOnly)); // of another time
        const QPoint at = table().visualRect(table().model()->index(row, 0)).center();
        QContextMenuEvent wish(QContextMenuEvent::Mouse, at, table().viewport()->mapToGlobal(at));
        QApplication::sendEvent(table().viewport(), &wish);
        return *table().findChild<QMenu*>();
    }
    /// Waits until nothing is left to be looked into, and answers what is said of the first row.
    QString learnedOfFirstRow()
    {
        const auto has = [this](int role) { return table().model()->index(0, 0).data(role); };
        EXPECT_TRUE(waitUntil([&] { return !has(PlaylistTable::WaitingRole).toBool(); }));
        return has(PlaylistTable::FaultRole).toBool() ? has(PlaylistTable::DetailRole).toString() : QString();
    }
    /// The entry of that text in a menu.
    static QAction& entry(const QMenu& menu, const char* text)
    {
        for (QAction* const action : menu.actions())
            if (action->text().remove(u'&') == QString::fromUtf8(text)) return *action;
        throw std::runtime_error(text);
    }
    static QAction& times(const QMenu& menu, const char* text)
    {
        return entry(*entry(menu, "Plays").menu(), text);
    }
    EntryMark markAt(int row) { return sheet->model().marks().of(sheet->model().playList().entries()[row]); }
};

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

TEST_F(ConfigSheetRowsTest, rowsThatWereAdded_areSelected_whenTheyAreMoreThanTheTableShows)
{
    QStringList movies;
    for (int number = 0; number < 200; ++number)
        movies.append(movie(QString::number(number)));
    open(movies);
    sheet->playlist().showFrom(50);
    EXPECT_EQ(sheet->playlist().selectedRows().size(), 150);
    EXPECT_EQ(sheet->playlist().selectedRows().first(), 50);
    EXPECT_EQ(table().currentIndex().row(), 199);
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

TEST_F(ConfigSheetRowsTest, arrows_moveTheRow)
{
    open({movie("0"), movie("1"), movie("2")});
    click("moveDownBtn");
    EXPECT_EQ(listed(), (QStringList{movie("1"), movie("0"), movie("2")}));
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{1});
    click("moveUpBtn");
    EXPECT_EQ(listed(), (QStringList{movie("0"), movie("1"), movie("2")}));
}

TEST_F(ConfigSheetRowsTest, arrows_areForOneRowThatHasAPlaceToGoTo)
{
    open({movie("0"), movie("1")});
    const auto canMove = [this] { return std::pair(isEnabled("moveUpBtn"), isEnabled("moveDownBtn")); };
    EXPECT_EQ(canMove(), std::pair(false, true));
    click("moveDownBtn");
    EXPECT_EQ(canMove(), std::pair(true, false));
    select({0, 1});
    EXPECT_EQ(canMove(), std::pair(false, false));
    select({1});
    sheet->model().addURLList({QUrl(movie("2"))});
    select({1});
    EXPECT_EQ(canMove(), std::pair(true, true));
    sheet->model().deleteMovie({2});
    EXPECT_EQ(canMove(), std::pair(true, false));
}

TEST_F(ConfigSheetRowsTest, menu_doesWhatTheButtonsDo)
{
    open({movie("0"), movie("1")});
    QMenu& menu = menuOn(0);
    for (const char* text : {"Add Movie…", "Add URL…", "Move Down", "Delete", "Look Again"})
        EXPECT_TRUE(entry(menu, text).isEnabled()) << text;
    EXPECT_FALSE(entry(menu, "Move Up").isEnabled());
    entry(menu, "Move Down").trigger();
    EXPECT_EQ(listed(), (QStringList{movie("1"), movie("0")}));
    entry(menu, "Delete").trigger();
    EXPECT_EQ(listed(), QStringList{movie("1")});
}

TEST_F(ConfigSheetRowsTest, menu_givesAndTakesStars)
{
    open({movie("0"), movie("1")});
    select({0, 1});
    entry(menuOn(0), "Star").trigger();
    EXPECT_TRUE(markAt(0).isStarred && markAt(1).isStarred);
    select({1});
    QAction& star = entry(menuOn(1), "Star");
    EXPECT_TRUE(star.isChecked());
    star.trigger();
    EXPECT_TRUE(markAt(0).isStarred);
    EXPECT_FALSE(markAt(1).isStarred);
    select({0, 1});
    EXPECT_FALSE(entry(menuOn(0), "Star").isChecked());
}

TEST_F(ConfigSheetRowsTest, menu_saysWhenEntriesPlay)
{
    open({movie("0"), "folder:///movies"});
    select({0, 1});
    times(menuOn(0), "At Night").trigger();
    EXPECT_EQ(markAt(0).time.kind, PlayTime::Kind::Night);
    EXPECT_EQ(listed()[1], "folder:///movies?when=night");
    EXPECT_TRUE(times(menuOn(0), "At Night").isChecked());
    EXPECT_FALSE(times(menuOn(0), "Always").isChecked());
    times(menuOn(0), "Always").trigger();
    EXPECT_EQ(listed()[1], "folder:///movies");
}

TEST_F(ConfigSheetRowsTest, menu_opensWithItsKey_atTheRowThatTheKeysAreOn)
{
    open({movie("0"), movie("1"), movie("2")});
    table().selectRowAlone(2);
    QContextMenuEvent wish(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(&table(), &wish);
    const auto* const menu = table().findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    const QRect row = table().visualRect(table().model()->index(2, 0));
    EXPECT_TRUE(row.contains(table().viewport()->mapFromGlobal(menu->pos())));
}

TEST_F(ConfigSheetRowsTest, menu_opensTheFolderOfAFileAlone)
{
    open({movie("0"), "file:///movies/a%20b/c.mov"});
    EXPECT_FALSE(entry(menuOn(0), "Open Folder").isEnabled());
    select({1});
    EXPECT_EQ(sheet->playlist().folderOfSelected(), "/movies/a b");
    select({0, 1});
    EXPECT_EQ(sheet->playlist().folderOfSelected(), std::nullopt);
}

TEST_F(ConfigSheetRowsTest, menu_opensAFolderThatIsAnEntry)
{
    open({"folder:///movies/a%20b?recursive=1"});
    EXPECT_TRUE(entry(menuOn(0), "Open Folder").isEnabled());
    EXPECT_EQ(sheet->playlist().folderOfSelected(), "/movies/a b");
}

TEST_F(ConfigSheetRowsTest, menu_looksAgainIntoTheMoviesThatAreSelected)
{
    open({movie("0"), movie("1")});
    const auto isWaiting = [this](int row) {
        return table().model()->index(row, 0).data(PlaylistTable::WaitingRole).toBool();
    };
    ASSERT_TRUE(waitUntil([&] { return !isWaiting(0) && !isWaiting(1); }));
    entry(menuOn(0), "Look Again").trigger();
    ASSERT_TRUE(waitUntil([this] { return looked().size() == 3; }));
    EXPECT_EQ(looked().last(), QUrl(movie("0")));
}

TEST_F(ConfigSheetRowsTest, faults_areLookedIntoAgain_whenTheSheetOpens)
{
    isThere = false;
    open({movie("0")});
    EXPECT_EQ(learnedOfFirstRow(), "m: cannot be opened, no such file");
    isThere = true;
    sheet->reject();
    sheet->open();
    EXPECT_EQ(learnedOfFirstRow(), "");
}

TEST_F(ConfigSheetRowsTest, faults_areLookedIntoAgain_whenTheirSignIsClicked)
{
    isThere = false;
    open({movie("0")});
    EXPECT_NE(learnedOfFirstRow(), "");
    isThere = true;
    const QRect row = table().visualRect(table().model()->index(0, 0));
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_NE(learnedOfFirstRow(), "");
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(20, row.height() / 2));
    EXPECT_EQ(learnedOfFirstRow(), "");
}

TEST_F(ConfigSheetRowsTest, faults_areLookedIntoAgain_whenTheirEntryIsAdded)
{
    isThere = false;
    open({movie("0")});
    EXPECT_NE(learnedOfFirstRow(), "");
    isThere = true;
    sheet->model().addURLList({QUrl(movie("0"))});
    EXPECT_EQ(learnedOfFirstRow(), "");
}

TEST_F(ConfigSheetRowsTest, oneRowIsSelected_whenTheSheetOpensAgain)
{
    open({movie("0"), movie("1"), movie("2")});
    table().selectAll();
    sheet->reject();
    sheet->open();
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{0});
    table().selectAll();
    sheet->accept();
    sheet->open();
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{0});
}

} // namespace kestro
