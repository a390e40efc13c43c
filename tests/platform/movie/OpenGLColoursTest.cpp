// The colours of movies drawn in software, beside mpv's own pictures of them.

#include "platform/display/gl/OpenGL.h"
#include "platform/display/view/AlignedImage.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillDecoder.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace kestro;

/// How far apart the pictures are in the channel that differs most, on the average.
static double greatestDifference(const QImage& one, const QImage& other)
{
    if (one.size() != other.size() || one.isNull()) return 255;
    double sums[3] = {};
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            sums[0] += std::abs(qRed(a) - qRed(b));
            sums[1] += std::abs(qGreen(a) - qGreen(b));
            sums[2] += std::abs(qBlue(a) - qBlue(b));
        }
    return *std::ranges::max_element(sums) / one.width() / one.height();
}

static std::shared_ptr<QTMovie> openedWith(const std::shared_ptr<OpenGL>& openGL, const char* name)
{
    MpvMovieLibrary library({.audioOutputs = "null"});
    library.setOpenGL(openGL);
    return settled(library.movieWithURL(testMovie(name)));
}

/// The first picture as mpv draws it, in its own size.
static QImage pictureOf(const char* name)
{
    const auto movie = openedWith(testOpenGL(), name);
    QImage picture;
    static_cast<void>(waitUntil([&] {
        picture = drawn(*movie, 1280, 720);
        return !picture.isNull();
    }));
    return picture;
}

class ColoursOf : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Movies, ColoursOf,
                         testing::Values("colours601.mp4", "colours709.mp4", "colours601full.mp4",
                                         "colours709full.mp4", "colours2020.mp4"));

TEST_P(ColoursOf, areThoseOfMpv_inSoftware)
{
    const QImage wanted = pictureOf(GetParam());
    const auto movie = openedWith(nullptr, GetParam());
    // What light the movie is of is told beside the first picture, not before it.
    EXPECT_TRUE(waitUntil([&] { return greatestDifference(drawn(*movie, 1280, 720), wanted) <= 2; }));
}

TEST_P(ColoursOf, areThoseOfMpv_inStills)
{
    StillDecoder stills(testMovie(GetParam()));
    EXPECT_LE(greatestDifference(stills.picture(0).image, pictureOf(GetParam())), 2);
}
