#include "publish/PosterChoice.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace kestro {
namespace {

QImage halves(QRgb left, QRgb right)
{
    QImage picture(100, 50, QImage::Format_RGB32);
    picture.fill(left);
    for (int y = 0; y < 50; ++y)
        for (int x = 50; x < 100; ++x)
            picture.setPixel(x, y, right);
    return picture;
}

TEST(PosterChoice, looksIntoTheMovieBeforeItsBeginning)
{
    const auto times = posterTimes(100);
    EXPECT_GT(times.front(), 10);
    EXPECT_TRUE(std::ranges::all_of(times, [](double time) { return time >= 0 && time < 100; }));
    EXPECT_EQ(posterTimes(0), std::vector<double>{0});
}

TEST(PosterChoice, findsAPictureOfContrastsMoreInterestingThanAFlatOne)
{
    const double flat = pictureInterest(halves(qRgb(0, 0, 0), qRgb(0, 0, 0)));
    const double faded = pictureInterest(halves(qRgb(20, 20, 20), qRgb(40, 40, 40)));
    const double full = pictureInterest(halves(qRgb(0, 0, 0), qRgb(255, 255, 255)));
    EXPECT_NEAR(flat, 0, 0.01);
    EXPECT_NEAR(faded, 10, 0.5);
    EXPECT_NEAR(full, 127.5, 0.5);
    EXPECT_TRUE(isInteresting(full));
    EXPECT_FALSE(isInteresting(faded));
    EXPECT_EQ(pictureInterest(QImage()), 0);
}

TEST(PosterChoice, keepsTheShape_withinBounds)
{
    EXPECT_EQ(posterSize({480, 204}), QSize(480, 204));
    EXPECT_EQ(posterSize({1920, 1080}), QSize(960, 540));
    EXPECT_EQ(posterSize({1080, 1920}), QSize(540, 960));
    EXPECT_EQ(posterSize({100'000, 1}), QSize(960, 1));
}

} // namespace
} // namespace kestro
