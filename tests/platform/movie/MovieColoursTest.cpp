// How movies are scaled; the colours of movies, of their stills and of what is played backwards, which are
// alike.

#include "platform/base/Log.h"
#include "platform/display/view/AlignedImage.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/FrameColours.h"
#include "platform/movie/FrameShrinker.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/MpvLight.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillDecoder.h"
#include "platform/movie/StillScaler.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <mpv/client.h>

using namespace kestro;

static Frame firstFrame(const char* name)
{
    AvInterrupt interrupt;
    interrupt.allow(std::chrono::seconds(60));
    auto decoder = FrameDecoder::open(testMovie(name), interrupt, FrameDecoder::Use::Backwards);
    if (!decoder) return nullptr;
    return decoder.value()->next([](const AVPacket&) { return false; });
}

/// The three fields of grey, each in its middle; empty where one is no grey.
static std::vector<int> greysOf(const QImage& picture)
{
    std::vector<int> greys;
    if (picture.isNull()) return greys;
    for (const int x : {1, 3, 5}) {
        const QColor colour = picture.pixelColor(picture.width() * x / 6, picture.height() / 2);
        if (std::abs(colour.red() - colour.green()) > 1 || std::abs(colour.blue() - colour.green()) > 1)
            return {};
        greys.push_back(colour.green());
    }
    return greys;
}

/// Of the green of all pixels.
static double meanDifference(const QImage& one, const QImage& other)
{
    double sum = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            sum += std::abs(qGreen(one.pixel(x, y)) - qGreen(other.pixel(x, y)));
    return sum / one.width() / one.height();
}

static bool areNear(const std::vector<int>& greys, const std::vector<int>& expected)
{
    return std::ranges::equal(greys, expected, [](int one, int other) { return std::abs(one - other) <= 2; });
}

namespace {

struct Greys {
    const char* name;
    std::vector<int> greys; ///< on the screen
};

class HdrMovie : public testing::TestWithParam<Greys> {};

} // namespace

// A pixel of dark grey has 89 of 255 where its light is 20 of the 203 cd/m2 of white, to the power of 1/2.2.
INSTANTIATE_TEST_SUITE_P(Curves, HdrMovie,
                         testing::Values(Greys{"pq.mp4", {89, 229, 255}}, Greys{"hlg.mp4", {136, 229, 255}}));

TEST_P(HdrMovie, isToneMapped_inItsSizeAndScaled)
{
    const auto movie = openMovie(testMovie(GetParam().name));
    movie->play();
    for (const QSize size : {QSize(96, 32), QSize(192, 90), QSize(48, 16)}) {
        const auto greys = [&] { return greysOf(drawn(*movie, size.width(), size.height())); };
        EXPECT_TRUE(waitUntil([&] { return areNear(greys(), GetParam().greys); }))
            << testing::PrintToString(greys());
    }
}

TEST_P(HdrMovie, hasStillsOfTheSameColours)
{
    StillDecoder stills(testMovie(GetParam().name));
    EXPECT_PRED2(areNear, greysOf(stills.picture(0).image), GetParam().greys);
    stills.setSize({45, 15});
    EXPECT_PRED2(areNear, greysOf(stills.picture(1).image), GetParam().greys);
}

TEST_P(HdrMovie, keepsItsLight_whenItsFramesAreMadeSmaller)
{
    FrameShrinker shrinker;
    StillScaler scaler;
    const Frame small = shrinker.shrunk(firstFrame(GetParam().name), {48, 16});
    ASSERT_NE(small, nullptr);
    EXPECT_PRED2(areNear, greysOf(scaler.picture(*small, {96, 32}, 0)), GetParam().greys);
}

TEST_P(HdrMovie, saysOnceThatItIsToneMapped)
{
    std::vector<QString> lines;
    const LogCapture capture([&lines](const QString& line) { lines.push_back(line); });
    const auto movie = openMovie(testMovie(GetParam().name));
    movie->setAttribute(MovieAttribute::Loops, true);
    movie->play();
    ASSERT_TRUE(waitUntil([&] { return movie->currentTime().timeValue > 600; }));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines[0].contains(QLatin1String("tone-mapped in software, up to 1000 cd/m2")))
        << lines[0].toStdString();
}

TEST(MovieColours, areNotToneMapped_whereNothingIsBrighterThanAScreen)
{
    std::vector<QString> lines;
    const LogCapture capture([&lines](const QString& line) { lines.push_back(line); });
    const auto movie = openMovie(testMovie("colours2020.mp4"));
    movie->play();
    ASSERT_TRUE(waitUntil([&] { return movie->rate() == 0; }));
    EXPECT_EQ(lines, std::vector<QString>());
}

TEST(MovieScaling, isThatOfLanczos)
{
    const auto movie = openMovie(testMovie("plate.mp4"));
    movie->setAttribute(MovieAttribute::Loops, true);
    movie->play();
    for (const QSize size : {QSize(320, 180), QSize(960, 540)}) {
        const QImage lanczos(testMovie("plate.mp4")
                                 .toLocalFile()
                                 .replace(QLatin1String(".mp4"),
                                          QStringLiteral("%1x%2.png").arg(size.width()).arg(size.height())));
        ASSERT_EQ(lanczos.size(), size);
        EXPECT_TRUE(waitUntil([&] {
            const QImage seen = drawn(*movie, size.width(), size.height());
            return !seen.isNull() && meanDifference(seen, lanczos) < 1;
        })) << meanDifference(drawn(*movie, size.width(), size.height()), lanczos);
    }
}

TEST(MovieColours, ofAFrame_areThoseThatItNames)
{
    using Curve = MovieLight::Curve;
    using Gamut = MovieLight::Gamut;
    EXPECT_EQ(lightOf(*firstFrame("pq.mp4")), (MovieLight{Curve::Pq, Gamut::Bt2020, MovieLight::usualPeak}));
    EXPECT_EQ(lightOf(*firstFrame("hlg.mp4")),
              (MovieLight{Curve::Hlg, Gamut::Bt2020, MovieLight::usualPeak}));
    EXPECT_EQ(lightOf(*firstFrame("colours2020.mp4")), (MovieLight{Curve::Plain, Gamut::Bt2020}));
    EXPECT_TRUE(lightOf(*firstFrame("colours709.mp4")).isPlain());
    EXPECT_TRUE(lightOf(*firstFrame("colours601.mp4")).isPlain());
}

TEST(MovieColours, asMpvTellsThem_areRead)
{
    char gamma[] = "pq";
    char primaries[] = "bt.2020";
    char* keys[] = {const_cast<char*>("w"), const_cast<char*>("h"), const_cast<char*>("gamma"),
                    const_cast<char*>("primaries"), const_cast<char*>("sig-peak")};
    mpv_node values[5] = {};
    values[0] = {.u = {.int64 = 96}, .format = MPV_FORMAT_INT64};
    values[1] = {.u = {.int64 = 32}, .format = MPV_FORMAT_INT64};
    values[2] = {.u = {.string = gamma}, .format = MPV_FORMAT_STRING};
    values[3] = {.u = {.string = primaries}, .format = MPV_FORMAT_STRING};
    values[4] = {.u = {.double_ = 2}, .format = MPV_FORMAT_DOUBLE};
    mpv_node_list list{5, values, keys};
    const mpv_node params{.u = {.list = &list}, .format = MPV_FORMAT_NODE_MAP};
    EXPECT_EQ(lightOf(params), (MovieLight{MovieLight::Curve::Pq, MovieLight::Gamut::Bt2020, 406}));
    EXPECT_EQ(frameSizeOf(params), QSize(96, 32));
    EXPECT_TRUE(lightOf(mpv_node{}).isPlain());
    EXPECT_TRUE(frameSizeOf(mpv_node{}).isEmpty());
}
