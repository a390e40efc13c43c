#include "platform/display/surface/SharedSurface.h"

#include "platform/display/surface/image/ImageSurface.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// Two surfaces, and a picture whose every pixel tells its place.
class SharedSurfaceTest : public testing::Test {
protected:
    static constexpr QSize size{64, 48};

    static QRgb pixelAt(int x, int y) { return qRgb(x, y, 7); }
    void paint()
    {
        QImage& canvas = shared.canvas();
        for (int y = 0; y < canvas.height(); ++y)
            for (int x = 0; x < canvas.width(); ++x)
                canvas.setPixel(x, y, pixelAt(x, y));
    }
    void paintAndPresent()
    {
        paint();
        shared.present(shared.canvas().rect());
    }
    /// A white square on black, of which that part is presented.
    void showSquare(const QRect& square, const QRect& presented)
    {
        QImage& canvas = shared.canvas();
        canvas.fill(Qt::black);
        for (int y = square.top(); y <= square.bottom(); ++y)
            for (int x = square.left(); x <= square.right(); ++x)
                canvas.setPixel(x, y, qRgb(255, 255, 255));
        shared.present(presented);
    }
    static QRgb shown(const ImageSurface& surface, int x, int y) { return surface.image().pixel(x, y); }

    ImageSurface first{size, 1};
    ImageSurface second{size, 1};
    SharedSurface shared;
};

const QRect whole({0, 0}, QSize(64, 48));
const QRgb black = qRgb(0, 0, 0);

} // namespace

TEST_F(SharedSurfaceTest, picture_isOnEverySurface_whenPresented)
{
    shared.setParts({{&first, whole}, {&second, whole}}, size, 1);
    paintAndPresent();
    EXPECT_EQ(first.image(), second.image());
    EXPECT_EQ(first.presentCount(), 1);
    EXPECT_EQ(shown(second, 63, 47), pixelAt(63, 47));
}

TEST_F(SharedSurfaceTest, firstSurface_isComposedInto_whereItShowsJustThePicture)
{
    shared.setParts({{&first, whole}, {&second, whole}}, size, 1);
    EXPECT_EQ(&shared.canvas(), &first.canvas());
    shared.setParts({{&first, whole.translated(-8, 0)}}, size, 1);
    EXPECT_NE(&shared.canvas(), &first.canvas());
    EXPECT_EQ(shared.pixelSize(), size);
}

TEST_F(SharedSurfaceTest, parts_areThoseOfThePicture_pixelForPixel)
{
    const QRect wide(0, 0, 128, 60);
    shared.setParts({{&first, wide}, {&second, wide.translated(-64, -12)}}, wide.size(), 1);
    paintAndPresent();
    for (const QPoint at : {QPoint(0, 0), QPoint(63, 47), QPoint(17, 5)}) {
        EXPECT_EQ(shown(first, at.x(), at.y()), pixelAt(at.x(), at.y()));
        EXPECT_EQ(shown(second, at.x(), at.y()), pixelAt(at.x() + 64, at.y() + 12));
    }
}

TEST_F(SharedSurfaceTest, change_isPresentedWhereItLies_andNowhereElse)
{
    const QRect wide(0, 0, 128, 48);
    shared.setParts({{&first, wide}, {&second, wide.translated(-64, 0)}}, wide.size(), 1);
    paintAndPresent();
    shared.present(QRect(70, 4, 10, 6));
    EXPECT_EQ(first.presentCount(), 1);
    EXPECT_EQ(second.presentCount(), 2);
    EXPECT_EQ(second.lastPresented(), QRegion(6, 4, 10, 6));
}

TEST_F(SharedSurfaceTest, barsAreBlack_whateverWasThereBefore)
{
    second.canvas().fill(Qt::red);
    second.present(whole);
    shared.setParts({{&first, whole}, {&second, {0, 12, 32, 24}}}, size, 1);
    paintAndPresent();
    EXPECT_EQ(shown(second, 0, 11), black);
    EXPECT_EQ(shown(second, 0, 36), black);
    EXPECT_EQ(shown(second, 32, 20), black);
    EXPECT_NE(shown(second, 31, 35), black);
}

TEST_F(SharedSurfaceTest, picture_isScaled_whereItsPlaceIsOfAnotherSize)
{
    shared.setParts({{&first, whole}, {&second, {0, 12, 32, 24}}}, size, 1);
    paintAndPresent();
    const QColor middle(shown(second, 16, 24));
    EXPECT_NEAR(middle.red(), 32, 2);
    EXPECT_NEAR(middle.green(), 24, 2);
}

// A change that is drawn alone comes out as if all had been drawn.
TEST_F(SharedSurfaceTest, scaledPicture_isTheSame_whetherItCameInPartsOrWhole)
{
    for (const QRect place : {QRect(0, 3, 56, 42), QRect(-20, -10, 128, 96)}) {
        shared.setParts({{&first, whole}, {&second, place}}, size, 1);
        const QRect changed(20, 10, 9, 7);
        showSquare(changed, whole);
        const QImage inOne = second.image();
        showSquare({}, whole);
        showSquare(changed, changed);
        EXPECT_EQ(second.image(), inOne);
        EXPECT_NE(second.lastPresented(), QRegion(whole));
    }
}

TEST_F(SharedSurfaceTest, wishesOfTheScreen_goToEverySurface)
{
    shared.setParts({{&first, whole}, {&second, whole}}, size, 1);
    shared.setCursorHidden(true);
    shared.setWatched(false);
    EXPECT_TRUE(first.isCursorHidden() && second.isCursorHidden());
    EXPECT_FALSE(first.isWatched() || second.isWatched());
}

TEST_F(SharedSurfaceTest, surfaceThatComesLater_isWatchedLikeTheOthers)
{
    shared.setParts({{&first, whole}}, size, 1);
    shared.setWatched(false);
    shared.setParts({{&first, whole}, {&second, whole}}, size, 1);
    EXPECT_FALSE(second.isWatched());
}

TEST_F(SharedSurfaceTest, nothingHappens_whileItHasNoParts)
{
    shared.setParts({}, size, 1);
    paintAndPresent();
    EXPECT_EQ(shared.openGLWindow(), nullptr);
    EXPECT_EQ(first.presentCount(), 0);
}

} // namespace kestro
