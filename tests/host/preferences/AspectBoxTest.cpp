#include "host/preferences/AspectBox.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

class AspectBoxTest : public testing::Test {
protected:
    AspectBoxTest()
    {
        box.resize(400, 400);
        box.show();
        box.setContent(*content);
    }

    QWidget* content = new QWidget;
    AspectBox box;
};

} // namespace

TEST_F(AspectBoxTest, content_isAsLargeAsItsShapeAllowsInTheMiddle)
{
    box.setShape({1920, 1080});
    EXPECT_EQ(content->geometry(), QRect(0, 87, 400, 225));
    box.setShape({100, 200});
    EXPECT_EQ(content->geometry(), QRect(100, 0, 200, 400));
}

TEST_F(AspectBoxTest, content_follows_whenTheBoxIsResized)
{
    box.setShape({2, 1});
    box.resize(800, 100);
    EXPECT_EQ(content->geometry(), QRect(300, 0, 200, 100));
}

TEST_F(AspectBoxTest, shape_stays_whenAnEmptyOneIsGiven)
{
    box.setShape({2, 1});
    box.setShape({0, 10});
    EXPECT_EQ(content->size(), QSize(400, 200));
}

TEST_F(AspectBoxTest, content_isShown_whenItComesToABoxOnTheScreen)
{
    EXPECT_TRUE(content->isVisible());
    EXPECT_EQ(content->parentWidget(), &box);
    EXPECT_EQ(content->geometry(), QRect(0, 87, 400, 225));
}

TEST_F(AspectBoxTest, box_isBlackWhereItsContentWillBe)
{
    AspectBox empty;
    empty.resize(400, 200);
    empty.setShape({1, 1});
    const QImage shown = empty.grab().toImage();
    EXPECT_EQ(shown.pixelColor(100, 0), QColor(Qt::black));
    EXPECT_EQ(shown.pixelColor(299, 199), QColor(Qt::black));
    EXPECT_NE(shown.pixelColor(99, 100), QColor(Qt::black));
    EXPECT_NE(shown.pixelColor(300, 100), QColor(Qt::black));
}

TEST_F(AspectBoxTest, hints_haveTheShape)
{
    box.setShape({2, 1});
    EXPECT_EQ(box.sizeHint(), QSize(560, 280));
    EXPECT_EQ(box.minimumSizeHint(), QSize(160, 80));
}

} // namespace kestro
