#include "platform/movie/FrameShrinker.h"

#include "platform/movie/MovieTest.h"
#include "platform/movie/StillScaler.h"

#include <gtest/gtest.h>

using namespace kestro;

static Frame firstFrame(const char* name)
{
    AvInterrupt interrupt;
    interrupt.allow(std::chrono::seconds(60));
    auto decoder = FrameDecoder::open(testMovie(name), interrupt, FrameDecoder::Use::Backwards);
    if (!decoder) return nullptr;
    return decoder.value()->next([](const AVPacket&) { return false; });
}

TEST(FrameShrinker, leavesFramesAlone_thatAreNotMuchLarger)
{
    FrameShrinker shrinker;
    for (const QSize size : {QSize(), QSize(320, 180), QSize(240, 140), QSize(1000, 1000)}) {
        Frame frame = firstFrame("plain.mp4");
        const AVFrame* const before = frame.get();
        EXPECT_EQ(shrinker.shrunk(std::move(frame), size).get(), before);
    }
}

TEST(FrameShrinker, leavesFramesAlone_thatAreNoColouredLight)
{
    FrameShrinker shrinker;
    Frame frame = firstFrame("animated.gif");
    const AVFrame* const before = frame.get();
    EXPECT_EQ(shrinker.shrunk(std::move(frame), {8, 8}).get(), before);
}

struct Coloured {
    const char* name;
    QColor colour;
};

class FrameShrinkerOf : public testing::TestWithParam<Coloured> {};

TEST_P(FrameShrinkerOf, keepsColours)
{
    FrameShrinker shrinker;
    StillScaler scaler;
    Frame large = firstFrame(GetParam().name);
    ASSERT_NE(large, nullptr);
    const QColor before = scaler.picture(*large, {64, 36}, 0).pixelColor(30, 20);
    const Frame small = shrinker.shrunk(std::move(large), {63, 35});
    const QColor after = scaler.picture(*small, {64, 36}, 0).pixelColor(30, 20);
    for (const QColor& seen : {before, after}) {
        EXPECT_NEAR(seen.red(), GetParam().colour.red(), 4);
        EXPECT_NEAR(seen.green(), GetParam().colour.green(), 4);
        EXPECT_NEAR(seen.blue(), GetParam().colour.blue(), 4);
    }
}

// Large pictures that do not name their colours have those of high definition, small ones the older ones.
INSTANTIATE_TEST_SUITE_P(Movies, FrameShrinkerOf,
                         testing::Values(Coloured{"colour709.mp4", QColor(200, 40, 80)},
                                         Coloured{"colour601.mp4", QColor(200, 40, 80)},
                                         Coloured{"colourfull.mp4", QColor(200, 40, 80)}));
