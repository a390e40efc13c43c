#include "platform/movie/ReverseDecoder.h"

#include "platform/movie/MovieTest.h"
#include "platform/movie/StillScaler.h"

#include <gtest/gtest.h>
#include <vector>

using namespace kestro;

namespace {

constexpr std::size_t most = 256'000'000;

/// What a movie gave, the last picture first.
struct Backwards {
    std::vector<int> numbers;
    std::vector<double> seconds;
    int stretches = 0;
    QString reason;
    std::size_t peakBytes = 0;
};

void append(Backwards& all, ReverseDecoder::Frames pictures, StillScaler& scaler)
{
    ++all.stretches;
    for (auto picture = pictures.rbegin(); picture != pictures.rend(); ++picture) {
        all.numbers.push_back(numberIn(scaler.picture(picture->frame(), {320, 180}, 0)));
        all.seconds.push_back(picture->seconds());
    }
}

Backwards allOf(const char* name, double from = 1e9, std::size_t mostBytes = most)
{
    const auto memory = std::make_shared<FrameMemory>(mostBytes);
    ReverseDecoder decoder(testMovie(name), memory, std::chrono::seconds(60));
    decoder.startAt(from);
    StillScaler scaler;
    Backwards all;
    while (true) {
        auto pictures = decoder.next({});
        if (!pictures) all.reason = pictures.error();
        if (!pictures || pictures.value().empty()) break;
        append(all, std::move(pictures.value()), scaler);
    }
    all.peakBytes = memory->peak();
    return all;
}

/// From `last` down to 0.
std::vector<int> countdown(int last)
{
    std::vector<int> numbers;
    for (int number = last; number >= 0; --number)
        numbers.push_back(number);
    return numbers;
}

} // namespace

struct Reversed {
    const char* name;
    int last;
    double frameSeconds;
    double first = 0; ///< seconds at which the first picture comes
};

static void PrintTo(const Reversed& of, std::ostream* out)
{
    *out << of.name;
}

class ReverseDecoderOf : public testing::TestWithParam<Reversed> {};

TEST_P(ReverseDecoderOf, givesEveryPicture_inReversedOrder_atItsTime)
{
    const Reversed of = GetParam();
    const Backwards all = allOf(of.name);
    EXPECT_EQ(all.reason, QString());
    EXPECT_EQ(all.numbers, countdown(of.last));
    for (std::size_t i = 0; i < all.numbers.size(); ++i)
        EXPECT_NEAR(all.seconds[i], of.first + all.numbers[i] * of.frameSeconds, 0.002);
    EXPECT_LE(all.peakBytes, most);
}

INSTANTIATE_TEST_SUITE_P(
    Movies, ReverseDecoderOf,
    testing::Values(Reversed{"plain.mp4", 59, 1 / 30.0}, Reversed{"plain.mov", 59, 1 / 30.0},
                    Reversed{"plain.mkv", 59, 1 / 30.0}, Reversed{"plain.webm", 59, 1 / 30.0},
                    Reversed{"noduration.webm", 59, 1 / 30.0}, Reversed{"plain.ts", 59, 1 / 30.0},
                    Reversed{"opengop.mp4", 59, 1 / 30.0}, Reversed{"opengop.mkv", 59, 1 / 30.0},
                    Reversed{"delayed.mkv", 59, 1 / 30.0, 0.523}, Reversed{"far30.mp4", 254, 1 / 30.0},
                    Reversed{"far60.mp4", 254, 1 / 60.0}, Reversed{"far2160.mp4", 39, 1 / 30.0}));

TEST(ReverseDecoder, givesPicturesAtTheirOwnTimes_whereTheseVary)
{
    for (const std::size_t mostBytes : {most, most / 256}) { // all of a group, and a few of it
        const Backwards all = allOf("variable.mp4", 1e9, mostBytes);
        EXPECT_EQ(all.numbers, countdown(59));
        for (std::size_t i = 0; i < all.numbers.size(); ++i)
            EXPECT_NEAR(all.seconds[i], all.numbers[i] / 30.0 + all.numbers[i] / 10 * 0.2, 0.002);
    }
}

TEST(ReverseDecoder, decodesAGroupAgain_forEachStretchThatThereIsRoomFor)
{
    EXPECT_GE(allOf("far30.mp4").stretches, 4);
    for (const char* name : {"plain.mp4", "opengop.mp4", "opengop.mkv", "plain.ts", "plain.webm"}) {
        const std::size_t room = 4 * 320 * 180 * 3 / 2;
        const Backwards all = allOf(name, 1e9, room);
        EXPECT_EQ(all.numbers, countdown(59)) << name;
        EXPECT_LE(all.peakBytes, room) << name;
        EXPECT_GT(all.stretches, 15) << name;
    }
}

TEST(ReverseDecoder, givesOnePictureAtATime_whereThereIsRoomForNone)
{
    const Backwards all = allOf("plain.mp4", 1e9, 1);
    EXPECT_EQ(all.numbers, countdown(59));
    EXPECT_EQ(all.stretches, 60);
}

TEST(ReverseDecoder, beginsWithThePictureThatShowsThere)
{
    for (const int number : {0, 1, 14, 15, 16, 44, 58, 59})
        EXPECT_EQ(allOf("plain.mp4", (number + 0.5) / 30).numbers, countdown(number));
    EXPECT_EQ(allOf("plain.mp4", 20 * 20 / 600.0).numbers, countdown(20));
    EXPECT_EQ(allOf("delayed.mkv", 0).numbers, countdown(0)) << "before the first picture";
}

TEST(ReverseDecoder, beginsElsewhere_whenSentThere)
{
    const auto memory = std::make_shared<FrameMemory>(most);
    ReverseDecoder decoder(testMovie("plain.mp4"), memory, std::chrono::seconds(60));
    StillScaler scaler;
    for (const int number : {50, 3, 59, 20}) {
        decoder.startAt((number + 0.5) / 30);
        auto pictures = decoder.next({});
        ASSERT_TRUE(pictures && !pictures.value().empty());
        EXPECT_EQ(numberIn(scaler.picture(pictures.value().back().frame(), {320, 180}, 0)), number);
    }
}

TEST(ReverseDecoder, countsWhatIsKept_asLongAsItIs)
{
    const auto memory = std::make_shared<FrameMemory>(most);
    ReverseDecoder decoder(testMovie("plain.mp4"), memory, std::chrono::seconds(60));
    decoder.startAt(1e9);
    {
        const auto pictures = decoder.next({});
        ASSERT_TRUE(pictures);
        EXPECT_GE(memory->used(), pictures.value().size() * 320 * 180 * 3 / 2);
    }
    EXPECT_EQ(memory->used(), 0U);
}

TEST(ReverseDecoder, keepsPicturesNoLargerThanTheyAreDrawn)
{
    for (const char* name : {"far2160.mp4", "opengop.mkv"}) {
        const auto memory = std::make_shared<FrameMemory>(most);
        ReverseDecoder decoder(testMovie(name), memory, std::chrono::seconds(60));
        decoder.setDrawnSize({159, 90});
        decoder.startAt(1e9);
        const auto pictures = decoder.next({});
        ASSERT_TRUE(pictures && !pictures.value().empty());
        EXPECT_LT(memory->peak(), pictures.value().size() * 160 * 90 * 3);
        StillScaler scaler;
        int number = numberIn(scaler.picture(pictures.value().front().frame(), {320, 180}, 0));
        for (const KeptFrame& picture : pictures.value())
            EXPECT_EQ(numberIn(scaler.picture(picture.frame(), {320, 180}, 0)), number++);
    }
}

TEST(ReverseDecoder, turnsNothing_butTellsHow)
{
    const auto memory = std::make_shared<FrameMemory>(most);
    ReverseDecoder decoder(testMovie("rotated270.mp4"), memory, std::chrono::seconds(60));
    decoder.startAt(1e9);
    const auto pictures = decoder.next({});
    ASSERT_TRUE(pictures && !pictures.value().empty());
    EXPECT_EQ(pictures.value().back().rotation(), 270);
}

TEST(ReverseDecoder, saysWhy_whenThereIsNoMovie)
{
    for (const char* name : {"text.mov", "none.mov", "audio.mp4"})
        EXPECT_FALSE(allOf(name).reason.isEmpty()) << name;
}

TEST(ReverseDecoder, ends_whenToldToStop)
{
    const auto memory = std::make_shared<FrameMemory>(most);
    ReverseDecoder decoder(testMovie("far30.mp4"), memory, std::chrono::seconds(60));
    decoder.startAt(1e9);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_FALSE(decoder.next(stop.get_token()));
    decoder.startAt(1e9);
    EXPECT_TRUE(decoder.next({})) << "and goes on when asked again";
}
