#include "engine/SignImage.h"

#include "engine/EngineTest.h"
#include "platform/display/view/Painter.h"

#include <QFileInfo>
#include <QPainter>

namespace kestro {

namespace {

class SignImageTest : public EngineTest {
protected:
    SignImageTest()
    {
        canvas.fill(Qt::blue);
        QImage image(20, 10, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        sign.setSignImage({image, {20, 10}});
    }

    void drawAt(Point place, bool overBackground)
    {
        sign.setImgBounds({place, sign.size()});
        QPainter device(&canvas);
        Painter painter(device, {0, 0}, 100, 1.0);
        sign.draw(painter, {{0, 0}, {200, 100}}, overBackground);
    }

    QColor canvasAt(int x, int y) { return canvas.pixelColor(x, 99 - y); }

    SignImage sign;
    QImage canvas{200, 100, QImage::Format_ARGB32_Premultiplied};
};

} // namespace

TEST_F(SignImageTest, draw_paintsTheGroundBlackOnce)
{
    drawAt({50, 50}, false);
    EXPECT_EQ(canvasAt(0, 0), QColor(Qt::black));
    EXPECT_EQ(canvasAt(55, 55), QColor(Qt::white));
    canvas.fill(Qt::blue);
    drawAt({50, 50}, false);
    EXPECT_EQ(canvasAt(0, 0), QColor(Qt::blue));
    sign.forgetGround();
    drawAt({50, 50}, false);
    EXPECT_EQ(canvasAt(0, 0), QColor(Qt::black));
}

TEST_F(SignImageTest, draw_isHalfOpaqueAndWipesItsLastPlace_overABackground)
{
    canvas.fill(Qt::transparent);
    drawAt({50, 50}, true);
    EXPECT_NEAR(canvasAt(55, 55).alpha(), 128, 1);
    EXPECT_EQ(canvasAt(0, 0).alpha(), 0);
    drawAt({100, 50}, true);
    EXPECT_EQ(canvasAt(55, 55).alpha(), 0);
    EXPECT_NEAR(canvasAt(105, 55).alpha(), 128, 1);
}

TEST_F(SignImageTest, draw_clearsTheGroundOnce_overABackground)
{
    canvas.fill(Qt::blue);
    drawAt({50, 50}, true);
    EXPECT_EQ(canvasAt(0, 0).alpha(), 0);
    canvas.fill(Qt::blue);
    drawAt({50, 50}, true);
    EXPECT_EQ(canvasAt(0, 0), QColor(Qt::blue));
}

TEST_F(SignImageTest, draw_leavesNoTraceInTheCorner_overABackground)
{
    canvas.fill(Qt::transparent);
    drawAt({0, 0}, true);
    EXPECT_NEAR(canvasAt(5, 5).alpha(), 128, 1);
    drawAt({100, 50}, true);
    EXPECT_EQ(canvasAt(5, 5).alpha(), 0);
}

TEST_F(SignImageTest, setSignImage_clearsTheSign_forANullPicture)
{
    EXPECT_TRUE(sign.isShown());
    sign.setSignImage({});
    EXPECT_FALSE(sign.isShown());
}

TEST_F(SignImageTest, pictures_areReadFromTheResourcesAndKept)
{
    const Picture& select = signs.selectImage();
    EXPECT_FALSE(select.isNull());
    EXPECT_EQ(&select, &signs.selectImage());
    EXPECT_FALSE(signs.previewImage().isNull());
    EXPECT_NE(signs.previewImage().image, select.image);
    EXPECT_NE(signs.failedImage().image, select.image);
    EXPECT_EQ(signs.failedImage().size, select.size);
}

// The sign wanders over the saver without clearing its last place, so a picture of its own must do that:
// black, and at its edges wider than the longest step.
TEST_F(SignImageTest, pictures_coverTheirOwnTraces)
{
    for (const Picture* picture : {&signs.selectImage(), &signs.failedImage(), &signs.previewImage()}) {
        const QImage& image = picture->image;
        const double density = image.width() / static_cast<double>(picture->size.width);
        const int margin = static_cast<int>(8 * density);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const bool inside =
                    x >= margin && x < image.width() - margin && y >= margin && y < image.height() - margin;
                ASSERT_EQ(qAlpha(image.pixel(x, y)), 255);
                ASSERT_TRUE(inside || image.pixel(x, y) == qRgb(0, 0, 0)) << x << ' ' << y;
            }
    }
}

TEST_F(SignImageTest, pictures_areNull_whenTheyCannotBeRead)
{
    SignPictures missing(QStringLiteral("/nowhere"));
    EXPECT_TRUE(missing.selectImage().isNull());
    EXPECT_TRUE(missing.failedImage().isNull());
    EXPECT_TRUE(missing.previewImage().isNull());
    EXPECT_EQ(logged("Cannot read the picture /nowhere/select.svg"), 1);
}

} // namespace kestro
