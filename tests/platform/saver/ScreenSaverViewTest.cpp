#include "platform/saver/ScreenSaverView.h"

#include "platform/display/view/Painter.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace kestro {

namespace {

const Rect frame{{5, 6}, {8, 4}};

} // namespace

TEST(ScreenSaverView, view_hasItsFrameAndKind)
{
    const ScreenSaverView full(frame, false);
    EXPECT_EQ(full.frame(), frame);
    EXPECT_FALSE(full.isPreview());
    EXPECT_TRUE(ScreenSaverView(frame, true).isPreview());
    EXPECT_FALSE(full.hasConfigureSheet());
}

TEST(ScreenSaverView, isAnimating_fromStartToStop)
{
    ScreenSaverView view(frame, false);
    EXPECT_FALSE(view.isAnimating());
    view.startAnimation();
    EXPECT_TRUE(view.isAnimating());
    view.animateOneFrame();
    EXPECT_TRUE(view.isAnimating());
    view.stopAnimation();
    EXPECT_FALSE(view.isAnimating());
}

TEST(ScreenSaverView, animationTimeInterval_isAThirtieth_untilSet)
{
    ScreenSaverView view(frame, false);
    EXPECT_EQ(view.animationTimeInterval(), 1.0 / 30);
    view.setAnimationTimeInterval(0.05);
    EXPECT_EQ(view.animationTimeInterval(), 0.05);
}

TEST(ScreenSaverView, drawRect_fillsItsPartBlack)
{
    QImage image(8, 4, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    ScreenSaverView view(frame, false);
    {
        QPainter device(&image);
        Painter painter(device, {0, 0}, 4, 1.0);
        view.drawRect(painter, {{0, 0}, {4, 4}});
    }
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(3, 3), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(4, 0), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(7, 3), QColor(Qt::white));
}

} // namespace kestro
