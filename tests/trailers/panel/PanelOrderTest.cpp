#include "trailers/panel/OpenPanelTest.h"

namespace kestro {

/// The order of the panel's rows, and the search in them.
class PanelOrderTest : public OpenPanelTest {};

TEST_F(PanelOrderTest, header_sortsByItsColumnAndReversesThePresentOne)
{
    list().store(
        {record("http://h/b.mov", "1 x 1", "2001/01/01"), record("http://h/a.mov", "1 x 1", "2002/01/01")});
    open();
    const QString a = QStringLiteral("http://h/a.mov"), b = QStringLiteral("http://h/b.mov");
    EXPECT_EQ(urls(), (QStringList{a, b}));
    clickHeader(TrailerTableModel::Date);
    EXPECT_EQ(indicator(), std::pair(int(TrailerTableModel::Date), Qt::DescendingOrder));
    EXPECT_EQ(urls(), (QStringList{a, b}));
    clickHeader(TrailerTableModel::Date);
    EXPECT_EQ(indicator(), std::pair(int(TrailerTableModel::Date), Qt::AscendingOrder));
    EXPECT_EQ(urls(), (QStringList{b, a}));
    clickHeader(TrailerTableModel::Url);
    EXPECT_EQ(indicator(), std::pair(int(TrailerTableModel::Url), Qt::AscendingOrder));
    EXPECT_EQ(urls(), (QStringList{a, b}));
    clickHeader(TrailerTableModel::Url);
    EXPECT_EQ(indicator(), std::pair(int(TrailerTableModel::Url), Qt::DescendingOrder));
    clickHeader(TrailerTableModel::Date);
    EXPECT_EQ(indicator(), std::pair(int(TrailerTableModel::Date), Qt::AscendingOrder));
    EXPECT_EQ(table().model()->index(0, TrailerTableModel::Url).data(), b);
}

TEST_F(PanelOrderTest, header_changesNothing_whenItsColumnDoesNotSort)
{
    openWith(2);
    clickHeader(TrailerTableModel::Size);
    clickHeader(TrailerTableModel::Sel);
    EXPECT_EQ(indicator().first, -1);
    EXPECT_TRUE(list().order().sortKey.isNull());
    clickHeader(TrailerTableModel::Date);
    clickHeader(TrailerTableModel::Sel);
    EXPECT_EQ(indicator(), std::pair(int(TrailerTableModel::Date), Qt::DescendingOrder));
}

TEST_F(PanelOrderTest, header_marksNoColumn_beforeOneWasChosen)
{
    openWith(2);
    EXPECT_EQ(indicator().first, -1);
    clickHeader(TrailerTableModel::Date);
    EXPECT_EQ(indicator().first, TrailerTableModel::Date);
    EXPECT_FALSE(list().order().ascending);
}

TEST_F(PanelOrderTest, sorting_isThatOfTheList_whenItWasSortedBefore)
{
    storeTrailers(2);
    list().setSortKey(QStringLiteral("URL"));
    list().setAscending(true);
    open();
    EXPECT_EQ(indicator(), std::pair(int(TrailerTableModel::Url), Qt::AscendingOrder));
    m_panel->tableViewSortDescriptorsDidChange(TrailerTableModel::Url);
    EXPECT_FALSE(list().order().ascending);
}

TEST_F(PanelOrderTest, sorting_isThatOfThePrototype_whenItsColumnWasNeverChosen)
{
    list().setSortKey(QStringLiteral("URL"));
    openWith(2);
    clickHeader(TrailerTableModel::Date);
    EXPECT_EQ(indicator(), std::pair(int(TrailerTableModel::Date), Qt::DescendingOrder));
    EXPECT_FALSE(list().order().ascending);
}

TEST_F(PanelOrderTest, findNext_selectsTheNextRowAlone)
{
    openWith(120); // highest first
    select({3, 5});
    QTest::keyClicks(controls().findField, QStringLiteral("/00"));
    QTest::keyClick(controls().findField, Qt::Key_Return);
    EXPECT_EQ(table().selectedRows(), QList<int>{110});
    EXPECT_EQ(state(), QStringLiteral("1/120"));
    QTest::keyClick(controls().findField, Qt::Key_Return);
    EXPECT_EQ(table().selectedRows(), QList<int>{111});
    EXPECT_TRUE(table().viewport()->rect().contains(table().visualRect(table().model()->index(111, 1))));
}

TEST_F(PanelOrderTest, findNext_changesNothing_whenNothingIsFound)
{
    open();
    m_panel->findNext();
    EXPECT_TRUE(table().selectedRows().isEmpty());
    storeTrailers(5);
    m_panel->reloadTableView();
    select({2});
    controls().findField->setText(QStringLiteral("nowhere"));
    m_panel->findNext();
    EXPECT_EQ(table().selectedRows(), QList<int>{2});
}

TEST_F(PanelOrderTest, findNext_beginsAtTheTop_whenTheRowWithTheFocusIsNotSelected)
{
    openWith(5);
    table().selectionModel()->setCurrentIndex(table().model()->index(2, 1), QItemSelectionModel::NoUpdate);
    controls().findField->setText(QStringLiteral("http"));
    m_panel->findNext();
    EXPECT_EQ(table().selectedRows(), QList<int>{0});
}

TEST_F(PanelOrderTest, findNext_comesOfItsKey_whereverTheFocusIs)
{
    openWith(5);
    controls().findField->setText(QStringLiteral("003"));
    table().setFocus();
    const auto keys = QKeySequence::keyBindings(QKeySequence::FindNext);
    ASSERT_FALSE(keys.isEmpty());
    QTest::keySequence(&table(), keys.first());
    EXPECT_EQ(table().selectedRows(), QList<int>{1});
}

} // namespace kestro
