#include "config_ui/RQTableViewRowMoveFixture.h"

#include <QStyledItemDelegate>

namespace kestro {

namespace {

/// Draws the selected row in one colour, wherever the keyboard and the mouse are.
class PlainRows final : public QStyledItemDelegate {
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    }
};

/// White rows, of which the selected one is red, and no text.
class RowMovePicture : public test::RowMoveTest {
protected:
    void SetUp() override
    {
        RowMoveTest::SetUp();
        QPalette palette = m_table.palette();
        palette.setColor(QPalette::Base, Qt::white);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
            palette.setColor(group, QPalette::Highlight, Qt::red);
        palette.setColor(QPalette::Dark, shadow);
        palette.setColor(QPalette::Button, QColor(200, 200, 200));
        m_table.setPalette(palette);
        m_table.setItemDelegate(&m_rows);
        m_table.setShowGrid(false);
        for (int i = 0; i < m_model.rowCount(); ++i)
            m_model.item(i)->setText({});
    }

    /// Presses row `row`, `inside` points below its upper edge, and drags to `y`.
    void dragTo(int row, int inside, int y)
    {
        press({width / 2, row * rowHeight + inside});
        drag({width / 2, y});
    }

    static constexpr int edge = width - 10;
    PlainRows m_rows;
    const QColor shadow{90, 90, 120};
    const QColor white{Qt::white};
    const QColor red{Qt::red};
    const QColor blue{0, 0, 255};
};

} // namespace

TEST_F(RowMovePicture, line_isBlueAtTheLowerEdgeOfTheRowBelow_whenMovedDown)
{
    dragTo(0, 18, 3 * rowHeight + 1);
    const QImage shown = screen();
    const int bottom = 4 * rowHeight;
    for (const int x : {0, width / 2, width - 1}) {
        EXPECT_EQ(shown.pixelColor(x, bottom - 3), white);
        EXPECT_EQ(shown.pixelColor(x, bottom - 2), blue);
        EXPECT_EQ(shown.pixelColor(x, bottom - 1), blue);
        EXPECT_EQ(shown.pixelColor(x, bottom), white);
    }
}

TEST_F(RowMovePicture, line_isBlueAtTheUpperEdgeOfTheRowAbove_whenMovedUp)
{
    dragTo(4, 2, rowHeight + 18);
    const QImage shown = screen();
    const int top = rowHeight;
    for (const int x : {0, width / 2, width - 1}) {
        EXPECT_EQ(shown.pixelColor(x, top - 1), white);
        EXPECT_EQ(shown.pixelColor(x, top), blue);
        EXPECT_EQ(shown.pixelColor(x, top + 1), blue);
        EXPECT_EQ(shown.pixelColor(x, top + 2), white);
    }
}

TEST_F(RowMovePicture, line_isGone_whenTheMouseIsOnTheMovingRowsPlaceOrOnNone)
{
    m_model.setRowCount(4);
    struct Case {
        int inside; ///< the row, where it was pressed
        int y;      ///< where the mouse is now
    };
    // The moving row lies over its own place's upper half, then over its lower half, then at the end.
    for (const auto& [inside, y] :
         {Case{18, rowHeight + 1}, Case{2, rowHeight + 18}, Case{2, 4 * rowHeight + 12}}) {
        dragTo(1, inside, y);
        const QImage shown = screen();
        for (int row = 0; row < visibleRows * rowHeight; ++row)
            EXPECT_NE(shown.pixelColor(edge, row), blue) << row;
        m_table.cancelMove();
    }
}

TEST_F(RowMovePicture, table_showsWhatItsRowsLearn_whileARowIsMoved)
{
    dragTo(0, 10, 2 * rowHeight + 14);
    EXPECT_EQ(screen().pixelColor(edge, 4 * rowHeight + 10), white);
    m_model.item(4)->setBackground(blue);
    EXPECT_EQ(screen().pixelColor(edge, 4 * rowHeight + 10), blue);
}

TEST_F(RowMovePicture, movingRow_isDrawnAtThreeQuarters_whenOverOthers)
{
    dragTo(0, 10, 2 * rowHeight + 14);
    const QColor mixed = screen().pixelColor(edge, 2 * rowHeight + 8);
    EXPECT_EQ(mixed.red(), 255);
    EXPECT_NEAR(mixed.green(), 64, 2);
    EXPECT_NEAR(mixed.blue(), 64, 2);
}

TEST_F(RowMovePicture, movingRow_keepsItsPlaceUnderTheMouse_whenDragged)
{
    dragTo(0, 5, 2 * rowHeight);
    const QImage shown = screen();
    EXPECT_EQ(shown.pixelColor(edge, 2 * rowHeight - 6), white);
    EXPECT_NE(shown.pixelColor(edge, 2 * rowHeight - 5), white);
    EXPECT_NE(shown.pixelColor(edge, 3 * rowHeight - 6), white);
}

TEST_F(RowMovePicture, movingRow_staysInside_whenDraggedOutOfTheTable)
{
    m_model.setRowCount(4);
    press(onRow(2));
    drag({-300, -300});
    QImage shown = screen();
    EXPECT_NEAR(shown.pixelColor(0, 10).green(), 64, 2);
    EXPECT_NEAR(shown.pixelColor(width - 1, 10).green(), 64, 2);
    EXPECT_EQ(shown.pixelColor(width / 2, rowHeight), white);
    drag({900, 900});
    shown = screen();
    EXPECT_NEAR(shown.pixelColor(0, visibleRows * rowHeight - 10).green(), 64, 2);
    EXPECT_NEAR(shown.pixelColor(width - 1, visibleRows * rowHeight - 10).green(), 64, 2);
}

TEST_F(RowMovePicture, oldPlace_isABezelledShadow_whileTheRowIsElsewhere)
{
    dragTo(1, 10, 3 * rowHeight + 10);
    const QImage shown = screen();
    const int top = rowHeight;
    const int bottom = 2 * rowHeight;
    EXPECT_EQ(shown.pixelColor(width / 2, top - 2), white);
    EXPECT_NE(shown.pixelColor(width / 2, top - 1), white); // the bezel begins a point above the row
    EXPECT_EQ(shown.pixelColor(2, top + 1), shadow);
    EXPECT_EQ(shown.pixelColor(width / 2, top + 10), shadow);
    EXPECT_EQ(shown.pixelColor(width - 3, bottom - 3), shadow);
    for (const QPoint at : {QPoint(width - 1, top + 10), QPoint(width / 2, bottom - 1)}) {
        EXPECT_NE(shown.pixelColor(at), shadow); // its light edges
        EXPECT_NE(shown.pixelColor(at), red);
    }
    EXPECT_EQ(shown.pixelColor(width / 2, bottom), white);
    EXPECT_GT(shown.pixelColor(width / 2, bottom - 1).lightness(),
              shown.pixelColor(width / 2, top - 1).lightness()); // sunken: in shade above, lit below
}

TEST_F(RowMovePicture, table_isDrawnWhereItIsScrolledTo_whileARowMoves)
{
    m_model.item(9)->setBackground(Qt::green);
    m_table.verticalScrollBar()->setValue(7 * rowHeight); // rows 7 to 11 are in sight
    dragTo(1, 10, 4 * rowHeight + 10);
    const QImage shown = screen();
    EXPECT_EQ(shown.pixelColor(edge, rowHeight + 10), shadow);
    EXPECT_EQ(shown.pixelColor(edge, 2 * rowHeight + 10), QColor(Qt::green));
    EXPECT_NEAR(shown.pixelColor(edge, 4 * rowHeight + 10).green(), 64, 2);
}

TEST_F(RowMovePicture, rowCache_isTakenAnew_whenAnotherRowOfItsSizeMoves)
{
    m_model.item(3)->setForeground(Qt::white);
    m_model.item(3)->setText(QStringLiteral("MMMMMMMMMM"));
    dragTo(1, 10, 2 * rowHeight + 10);
    m_table.cancelMove();
    dragTo(3, 10, 2 * rowHeight + 10);
    const QImage shown = screen();
    int lightest = 0; // of the lettering, in what is moved
    for (int x = 0; x < width; ++x)
        lightest = std::max(lightest, shown.pixelColor(x, 2 * rowHeight + 10).green());
    EXPECT_GT(lightest, 128);
}

TEST_F(RowMovePicture, rowBeforeItIsGrabbed_isDrawnAtItsNewPlace)
{
    m_table.setNeedsMoveFreely(true);
    RowMoveDelegate looking = delegate();
    int paintings = 0;
    class Counter final : public QObject {
    public:
        explicit Counter(int& count)
            : m_count(count)
        {
        }
        bool eventFilter(QObject*, QEvent* event) override
        {
            m_count += event->type() == QEvent::Paint;
            return false;
        }

    private:
        int& m_count;
    } counter(paintings);
    m_table.viewport()->installEventFilter(&counter);
    looking.tableViewImageForRow = [&paintings](RQTableViewRowMove&, int) {
        EXPECT_GT(paintings, 0); // by now the row is shown selected
        return QPixmap(10, 10);
    };
    m_table.setRowMoveDelegate(looking);
    press(onRow(2));
    drag(onRow(3));
    ASSERT_EQ(m_table.m_drags.size(), 1U);
}

TEST_F(RowMovePicture, table_isDrawnAsItIs_whenTheMoveEnds)
{
    dragTo(1, 10, 3 * rowHeight + 10);
    m_table.cancelMove();
    const QImage shown = screen();
    EXPECT_EQ(shown.pixelColor(edge, rowHeight + 10), red);
    EXPECT_EQ(shown.pixelColor(edge, 3 * rowHeight + 10), white);
}

TEST_F(RowMovePicture, tableCache_holdsTheVisiblePart_whenAMoveStarts)
{
    dragTo(1, 10, 3 * rowHeight);
    const QImage cache = m_table.tableCache().toImage();
    EXPECT_EQ(cache.size(), QSize(width, visibleRows * rowHeight));
    EXPECT_EQ(cache.pixelColor(edge, rowHeight + 10), red);
    EXPECT_EQ(cache.pixelColor(edge, 10), white);
}

TEST_F(RowMovePicture, imageForRow_isAsWideAsTheRow_whenMovedInsideTheTable)
{
    m_table.selectRow(2);
    m_table.horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table.horizontalHeader()->resizeSection(0, 2 * width);
    const QImage image = m_table.imageForRow(2).toImage();
    EXPECT_EQ(image.size(), QSize(2 * width, rowHeight));
    EXPECT_EQ(image.pixelColor(edge, 10), red);
    EXPECT_EQ(image.pixelColor(width + 10, 10).alpha(), 0); // not on the screen
}

TEST_F(RowMovePicture, imageForRow_holdsNothingOfTheLastOne_whereTheRowIsOutOfSight)
{
    m_table.selectRow(1);
    ASSERT_EQ(m_table.imageForRow(1).toImage().pixelColor(edge, 5), red);
    m_table.verticalScrollBar()->setValue(rowHeight * 3 / 2);
    const QImage image = m_table.imageForRow(1).toImage();
    EXPECT_EQ(image.pixelColor(edge, 5).alpha(), 0);
    EXPECT_EQ(image.pixelColor(edge, 15), red);
}

TEST_F(RowMovePicture, imageForRow_isAsWideAsTheVisiblePart_whenMovedFreely)
{
    m_table.setNeedsMoveFreely(true);
    m_table.selectRow(2);
    m_table.horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table.horizontalHeader()->resizeSection(0, 2 * width);
    const QImage image = m_table.imageForRow(2).toImage();
    EXPECT_EQ(image.size(), QSize(width, rowHeight));
    EXPECT_EQ(image.pixelColor(edge, 10), red);
}

TEST_F(RowMovePicture, sizeCacheWindowTo_keepsAnImage_whenItHasTheSize)
{
    const QPixmap made = m_table.sizeCacheWindowTo({}, QSize(30, 20));
    EXPECT_EQ(made.size(), QSize(30, 20));
    EXPECT_TRUE(made.hasAlphaChannel());
    EXPECT_EQ(m_table.sizeCacheWindowTo(made, QSize(30, 20)).cacheKey(), made.cacheKey());
    QPixmap dense = made; // as many pixels, but half the size
    dense.setDevicePixelRatio(2);
    EXPECT_EQ(m_table.sizeCacheWindowTo(dense, QSize(30, 20)).devicePixelRatio(), 1);
    const QPixmap other = m_table.sizeCacheWindowTo(made, QSize(30, 21));
    EXPECT_EQ(other.size(), QSize(30, 21));
    EXPECT_EQ(other.toImage().pixelColor(1, 1).alpha(), 0);
}

} // namespace kestro
