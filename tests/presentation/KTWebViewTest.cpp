#include "presentation/KTWebView.h"

#include "platform/display/view/Painter.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace kestro {

TEST(KTWebView, drawRect_fillsTheRectangleYellow)
{
    KTWebView view({{0, 0}, {100, 100}});
    QImage canvas(100, 100, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter device(&canvas);
    Painter painter(device, {0, 0}, 100, 1.0);
    view.drawRect(painter, {{10, 20}, {30, 40}});
    device.end();
    EXPECT_EQ(canvas.pixelColor(10, 79), QColor(Qt::yellow));
    EXPECT_EQ(canvas.pixelColor(39, 40), QColor(Qt::yellow));
    EXPECT_EQ(canvas.pixelColor(40, 60).alpha(), 0);
    EXPECT_EQ(canvas.pixelColor(20, 80).alpha(), 0);
}

} // namespace kestro
