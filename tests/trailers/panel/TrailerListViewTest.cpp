#include "trailers/panel/TrailerListView.h"

#include "trailers/TrailerListFixture.h"
#include "trailers/panel/TrailerTableModel.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace kestro {

class TrailerListViewTest : public TrailerListFixture {
protected:
    TrailerListViewTest()
    {
        m_view.showModel(m_model);
        m_view.resize(600, 300);
        m_view.show();
    }

    void add(int first, int count)
    {
        std::vector<TrailerRecord> records;
        for (int number = first; number < first + count; ++number)
            records.push_back(record(qPrintable(QString::asprintf("http://h/%03d.mov", number))));
        m_list.store(std::move(records));
        m_view.reloadData();
    }
    void select(std::initializer_list<int> rows)
    {
        m_view.clearSelection();
        for (const int row : rows)
            m_view.selectionModel()->select(m_model.index(row, 0),
                                            QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    [[nodiscard]] QStringList selectedURLs() const
    {
        QStringList urls;
        for (const int row : m_view.selectedRows())
            urls.append(m_model.urls()[row].sliced(9, 3));
        return urls;
    }

    TrailerList m_list{m_home.path(), seed()};
    TrailerTableModel m_model{m_list};
    TrailerListView m_view;
};

TEST_F(TrailerListViewTest, selectedRows_areInOrder_whenTheyWereChosenOutOfIt)
{
    add(0, 10);
    select({7, 2, 3});
    EXPECT_EQ(m_view.selectedRows(), (QList<int>{2, 3, 7}));
    m_view.selectAll();
    EXPECT_EQ(m_view.selectedRows().size(), 10);
}

TEST_F(TrailerListViewTest, selectedRow_isTheOneWithTheFocus_elseTheFirst)
{
    add(0, 10);
    EXPECT_FALSE(m_view.selectedRow());
    select({7, 2});
    EXPECT_EQ(m_view.selectedRow(), 2);
    m_view.selectionModel()->setCurrentIndex(m_model.index(7, 1), QItemSelectionModel::NoUpdate);
    EXPECT_EQ(m_view.selectedRow(), 7);
    m_view.selectionModel()->setCurrentIndex(m_model.index(5, 1), QItemSelectionModel::NoUpdate);
    EXPECT_EQ(m_view.selectedRow(), 2);
}

TEST_F(TrailerListViewTest, reloadData_keepsWhatIsSelected_whenRowsComeBetween)
{
    add(0, 3);
    select({0, 2});
    m_view.selectionModel()->setCurrentIndex(m_model.index(2, TrailerTableModel::Sel),
                                             QItemSelectionModel::NoUpdate);
    ASSERT_EQ(selectedURLs(), (QStringList{QStringLiteral("002"), QStringLiteral("000")}));
    QSignalSpy changes(&m_view, &TrailerListView::tableViewSelectionDidChange);
    m_list.store({record("http://h/001a.mov"), record("http://h/009.mov")});
    m_view.reloadData();
    EXPECT_EQ(selectedURLs(), (QStringList{QStringLiteral("002"), QStringLiteral("000")}));
    EXPECT_EQ(m_view.currentIndex(), m_model.index(4, TrailerTableModel::Sel));
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(TrailerListViewTest, reloadData_tellsThatTheSelectionChanged_whenSelectedRowsAreGone)
{
    add(0, 3);
    select({1});
    QSignalSpy changes(&m_view, &TrailerListView::tableViewSelectionDidChange);
    m_list.clear();
    m_view.reloadData();
    EXPECT_EQ(changes.size(), 1);
    EXPECT_TRUE(m_view.selectedRows().isEmpty());
    m_view.reloadData();
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(TrailerListViewTest, reloadData_keepsTheTopRow_unlessTheListStandsAtItsBeginning)
{
    add(0, 200);
    QCoreApplication::processEvents();
    m_view.verticalScrollBar()->setValue(50);
    const QString top = m_model.urls()[m_view.rowAt(0)];
    add(200, 100);
    EXPECT_EQ(m_model.urls()[m_view.rowAt(0)], top);
    EXPECT_EQ(m_view.verticalScrollBar()->value(), 150);
    m_view.scrollToTop();
    add(300, 100);
    EXPECT_EQ(m_view.verticalScrollBar()->value(), 0);
}

TEST_F(TrailerListViewTest, selectRowAlone_selectsOneRowAndScrollsToIt)
{
    add(0, 200);
    select({1, 2});
    m_view.selectRowAlone(150);
    EXPECT_EQ(m_view.selectedRows(), QList<int>{150});
    EXPECT_EQ(m_view.currentIndex().row(), 150);
    EXPECT_TRUE(m_view.viewport()->rect().contains(m_view.visualRect(m_model.index(150, 0))));
}

TEST_F(TrailerListViewTest, doubleAction_comesOfADoubleClickAndOfReturn)
{
    add(0, 3);
    QSignalSpy actions(&m_view, &TrailerListView::doubleAction);
    QTest::keyClick(&m_view, Qt::Key_Return);
    EXPECT_EQ(actions.size(), 0);
    const QPoint place = m_view.visualRect(m_model.index(1, TrailerTableModel::Url)).center();
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(actions.size(), 0);
    QTest::mouseDClick(m_view.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(actions.size(), 1);
    QTest::keyClick(&m_view, Qt::Key_Return);
    QTest::keyClick(&m_view, Qt::Key_Enter);
    EXPECT_EQ(actions.size(), 3);
}

TEST_F(TrailerListViewTest, doubleAction_doesNotComeOfADoubleClickWhereTheBoxIs)
{
    add(0, 3);
    QSignalSpy actions(&m_view, &TrailerListView::doubleAction);
    const QRect place = m_view.visualRect(m_model.index(1, TrailerTableModel::Sel));
    for (const int x : {place.left() + 10, place.right() - 2}) {
        QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {}, {x, place.center().y()});
        QTest::mouseDClick(m_view.viewport(), Qt::LeftButton, {}, {x, place.center().y()});
    }
    EXPECT_EQ(actions.size(), 0);
}

TEST_F(TrailerListViewTest, returnKey_selectsTheRowWithTheFocus_whenItIsNotSelected)
{
    add(0, 3);
    select({0});
    m_view.selectionModel()->setCurrentIndex(m_model.index(2, TrailerTableModel::Url),
                                             QItemSelectionModel::NoUpdate);
    QTest::keyClick(&m_view, Qt::Key_Return);
    EXPECT_EQ(m_view.selectedRows(), QList<int>{2});
}

TEST_F(TrailerListViewTest, space_setsTheCheck_whenItsColumnHasTheFocus)
{
    add(0, 3);
    m_view.setCurrentIndex(m_model.index(1, TrailerTableModel::Sel));
    QTest::keyClick(&m_view, Qt::Key_Space);
    EXPECT_EQ(m_model.index(1, TrailerTableModel::Sel).data(Qt::CheckStateRole), Qt::Checked);
}

TEST_F(TrailerListViewTest, columns_showTheirContentsWhole_whateverTheFont)
{
    add(0, 1);
    for (const int points : {9, 18}) {
        QFont font = m_view.font();
        font.setPointSize(points);
        m_view.setFont(font);
        for (const int column : {TrailerTableModel::Size, TrailerTableModel::Date})
            EXPECT_GE(m_view.columnWidth(column), m_view.sizeHintForIndex(m_model.index(0, column)).width());
        EXPECT_GE(m_view.rowHeight(0), m_view.fontMetrics().height());
    }
}

TEST_F(TrailerListViewTest, tab_leavesTheTable)
{
    add(0, 3);
    EXPECT_FALSE(m_view.tabKeyNavigation());
}

} // namespace kestro
