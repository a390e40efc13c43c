#include "presentation/AfterImageView.h"

#include "platform/display/view/Painter.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace kestro {

namespace {

QImage drawn(AfterImageView& view)
{
    QImage canvas(100, 100, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter device(&canvas);
    Painter painter(device, {0, 0}, 100, 1.0);
    view.drawRect(painter, view.bounds());
    device.end();
    return canvas;
}

Picture red()
{
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    return {image, {10, 10}};
}

} // namespace

TEST(AfterImageView, drawRect_drawsTheWholeImageScaledIntoItsFrame)
{
    AfterImageView view({{0, 0}, {100, 100}});
    view.setImageFrame(red(), {{20, 10}, {40, 30}});
    const QImage canvas = drawn(view);
    EXPECT_EQ(canvas.pixelColor(21, 88), QColor(Qt::red));
    EXPECT_EQ(canvas.pixelColor(58, 61), QColor(Qt::red));
    EXPECT_EQ(canvas.pixelColor(10, 50).alpha(), 0);
    EXPECT_EQ(canvas.pixelColor(40, 50).alpha(), 0);
}

TEST(AfterImageView, drawRect_drawsNothing_withoutAnImage)
{
    AfterImageView view({{0, 0}, {100, 100}});
    EXPECT_TRUE(view.image().isNull());
    EXPECT_EQ(drawn(view).pixelColor(50, 50).alpha(), 0);
    view.setImageFrame(red(), {{0, 0}, {100, 100}});
    view.setImageFrame({}, {});
    EXPECT_EQ(drawn(view).pixelColor(50, 50).alpha(), 0);
}

} // namespace kestro
