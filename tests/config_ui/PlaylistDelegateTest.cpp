// How a row of the playlist is drawn and edited.

#include "config_ui/PlaylistDelegate.h"

#include "config_ui/PlaylistTable.h"
#include "settings/EntryMark.h"

#include <QLineEdit>
#include <QPainter>
#include <QStandardItemModel>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class PlaylistDelegateTest : public testing::Test {
protected:
    PlaylistDelegateTest()
    {
        model.setItem(0, 0, item);
        item->setText(QStringLiteral("Name"));
        item->setData(QStringLiteral("Place"), PlaylistTable::DetailRole);
        option.rect = QRect(0, 0, 400, PlaylistDelegate::rowHeight(option.fontMetrics));
        option.palette.setColor(QPalette::Text, Qt::black);
        option.palette.setColor(QPalette::AlternateBase, Qt::yellow);
        option.state = QStyle::State_Enabled | QStyle::State_Active;
    }

    QImage draw()
    {
        QImage picture(option.rect.size(), QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        delegate.paint(&painter, option, model.index(0, 0));
        return picture;
    }
    /// The middle of the place of the picture at the start of a row.
    [[nodiscard]] QPoint middleOfPicture() const
    {
        const int gap = option.fontMetrics.height() / 3;
        return {gap + PlaylistDelegate::pictureSize(option.fontMetrics).width() / 2,
                option.rect.height() / 2};
    }
    /// How many pixels of a part of the row are dark.
    static int darkness(const QImage& row, const QRect& part)
    {
        int dark = 0;
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                dark += qGray(row.pixel(x, y)) < 140 ? 1 : 0;
        return dark;
    }
    [[nodiscard]] QRect endOfRow() const { return option.rect.adjusted(option.rect.width() - 60, 0, 0, 0); }
    void setPicture(QColor colour)
    {
        QImage picture(32, 18, QImage::Format_RGB32);
        picture.fill(colour);
        item->setData(picture, Qt::DecorationRole);
    }

    QStandardItemModel model;
    QStandardItem* item = new QStandardItem; // of the model
    PlaylistDelegate delegate;
    QStyleOptionViewItem option;
};

} // namespace

TEST_F(PlaylistDelegateTest, row_isHighEnoughForTwoLinesOfItsFont)
{
    EXPECT_GE(delegate.sizeHint(option, model.index(0, 0)).height(), 2 * option.fontMetrics.lineSpacing());
    QFont larger;
    larger.setPointSize(3 * larger.pointSize());
    EXPECT_GE(PlaylistDelegate::rowHeight(QFontMetrics(larger)), 2 * QFontMetrics(larger).lineSpacing());
}

TEST_F(PlaylistDelegateTest, picture_isAtTheStartOfTheRow)
{
    setPicture(Qt::red);
    const QImage row = draw();
    EXPECT_EQ(row.pixelColor(middleOfPicture()), QColor(Qt::red));
    EXPECT_EQ(row.pixelColor(row.width() - 1 - middleOfPicture().x(), middleOfPicture().y()),
              QColor(Qt::white));
}

TEST_F(PlaylistDelegateTest, picture_isAtTheRight_whereTextRunsToTheLeft)
{
    setPicture(Qt::red);
    option.direction = Qt::RightToLeft;
    const QImage row = draw();
    EXPECT_EQ(row.pixelColor(row.width() - 1 - middleOfPicture().x(), middleOfPicture().y()),
              QColor(Qt::red));
}

TEST_F(PlaylistDelegateTest, picture_keepsItsShape_onBlack)
{
    QImage tall(9, 18, QImage::Format_RGB32);
    tall.fill(Qt::red);
    item->setData(tall, Qt::DecorationRole);
    const QImage row = draw();
    const QSize place = PlaylistDelegate::pictureSize(option.fontMetrics);
    EXPECT_EQ(row.pixelColor(middleOfPicture()), QColor(Qt::red));
    EXPECT_EQ(row.pixelColor(middleOfPicture() - QPoint(place.width() / 2 - 2, 0)), QColor(Qt::black));
}

TEST_F(PlaylistDelegateTest, sign_standsForAMissingPicture_butNotWhileItIsAwaited)
{
    const QRect place(middleOfPicture() - QPoint(4, 4), QSize(8, 8));
    EXPECT_GT(darkness(draw(), place), 10);
    item->setData(true, PlaylistTable::WaitingRole);
    const QImage awaited = draw();
    EXPECT_EQ(awaited.pixelColor(middleOfPicture()), QColor(Qt::yellow));
    item->setData(true, PlaylistTable::FaultRole);
    EXPECT_NE(draw(), awaited);
}

TEST_F(PlaylistDelegateTest, mark_standsBeforeTheDuration)
{
    item->setData(QStringLiteral("1:02"), PlaylistTable::DurationRole);
    const QImage plain = draw();
    const EntryMark starred{true, {}};
    item->setData(QVariant::fromValue(starred), PlaylistTable::MarkRole);
    const QImage marked = draw();
    const int duration = option.fontMetrics.horizontalAdvance(QStringLiteral("1:02"));
    const int end = option.rect.right() - option.fontMetrics.height() / 3 - duration;
    const QRect before(end - 40, 0, 40, option.rect.height());
    EXPECT_EQ(darkness(plain, before), 0);
    EXPECT_GT(darkness(marked, before), 20);
    const QRect atEnd(end + 1, 0, option.rect.right() - end, option.rect.height());
    EXPECT_EQ(marked.copy(atEnd), plain.copy(atEnd));
}

TEST_F(PlaylistDelegateTest, duration_isAtTheEndOfTheFirstLine)
{
    EXPECT_EQ(darkness(draw(), endOfRow()), 0);
    item->setData(QStringLiteral("1:02:03"), PlaylistTable::DurationRole);
    const QRect first = endOfRow().adjusted(0, 0, 0, -option.rect.height() / 2);
    EXPECT_GT(darkness(draw(), first), 5);
}

TEST_F(PlaylistDelegateTest, texts_areCutOffBeforeTheEndOfTheRow)
{
    item->setText(QString(200, u'm'));
    item->setData(QString(200, u'm'), PlaylistTable::DetailRole);
    const QRect margin = option.rect.adjusted(option.rect.width() - option.fontMetrics.height() / 3, 0, 0, 0);
    const QImage row = draw();
    EXPECT_EQ(darkness(row, margin), 0);
    EXPECT_GT(darkness(row, endOfRow()), 5);
}

TEST_F(PlaylistDelegateTest, texts_haveTheColourOfASelection_whereTheRowIsSelected)
{
    option.palette.setColor(QPalette::Highlight, Qt::white);
    option.palette.setColor(QPalette::HighlightedText, Qt::white);
    setPicture(Qt::white);
    option.state |= QStyle::State_Selected;
    const QImage row = draw();
    const QRect texts = row.rect().adjusted(middleOfPicture().x() * 2, 0, 0, 0);
    EXPECT_EQ(darkness(row, texts), 0);
}

TEST_F(PlaylistDelegateTest, editor_coversBothLines_andLeavesThePictureInSight)
{
    QLineEdit editor;
    delegate.updateEditorGeometry(&editor, option, model.index(0, 0));
    EXPECT_EQ(editor.height(), option.rect.height());
    EXPECT_GT(editor.x(), middleOfPicture().x() * 2 - option.fontMetrics.height());
    EXPECT_LT(editor.geometry().right(), option.rect.right());
}

} // namespace kestro
