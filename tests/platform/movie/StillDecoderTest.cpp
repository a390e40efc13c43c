#include "platform/movie/StillDecoder.h"

#include "platform/movie/MovieTest.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>

using namespace kestro;

class StillsOf : public testing::TestWithParam<const char*> {};

TEST_P(StillsOf, areExact_inAnyOrder)
{
    StillDecoder stills(testMovie(GetParam()));
    for (const int number : {0, 1, 2, 7, 44, 45, 46, 59, 14, 13, 12, 31, 33, 3, 58, 58, 15, 0}) {
        const Picture still = stills.picture((number + 0.5) / 30);
        EXPECT_EQ(numberIn(still.image), number);
    }
}

TEST_P(StillsOf, areExact_whenEveryOneIsTaken)
{
    StillDecoder stills(testMovie(GetParam()));
    for (int number = 0; number < 60; ++number)
        EXPECT_EQ(numberIn(stills.picture((number + 0.5) / 30).image), number);
}

TEST_P(StillsOf, areTheLastOne_pastTheEnd)
{
    StillDecoder stills(testMovie(GetParam()));
    EXPECT_EQ(numberIn(stills.picture(2).image), 59);
    EXPECT_EQ(numberIn(stills.picture(1000).image), 59);
    EXPECT_EQ(numberIn(stills.picture(0.02).image), 0);
    EXPECT_EQ(numberIn(stills.picture(1e9).image), 59);
}

INSTANTIATE_TEST_SUITE_P(Containers, StillsOf,
                         testing::Values("plain.mp4", "plain.mov", "plain.mkv", "plain.webm", "sound.mp4",
                                         "noduration.webm"));

TEST(StillDecoder, hasNoPicture_whenTheStreamIsLargerThanItsContainerSays)
{
    StillDecoder stills(testMovie("lying.webm"));
    EXPECT_TRUE(stills.picture(0).image.isNull());
}

TEST(StillDecoder, showsTheFrame_whoseTimeIsAskedFor)
{
    StillDecoder stills(testMovie("plain.mp4"));
    for (int number = 0; number < 60; ++number)
        EXPECT_EQ(numberIn(stills.picture(number * 20 / 600.0).image), number);
}

TEST(StillDecoder, givesTheNaturalSize_untilAnotherIsSet)
{
    StillDecoder stills(testMovie("anamorphic.mp4"));
    EXPECT_EQ(stills.picture(0).image.size(), QSize(1024, 576));
    stills.setSize({101, 57});
    const Picture still = stills.picture(0);
    EXPECT_EQ(still.image.size(), QSize(101, 57));
    EXPECT_EQ(still.size, (Size{101, 57}));
}

TEST(StillDecoder, isOpaque)
{
    StillDecoder stills(testMovie("plain.mp4"));
    EXPECT_EQ(qAlpha(*reinterpret_cast<const QRgb*>(stills.picture(0).image.constBits())), 255);
}

TEST(StillDecoder, turnsPicturesUpright)
{
    const auto at = [](const char* name) {
        StillDecoder stills(testMovie(name));
        return stills.picture(5.5 / 30).image; // 5: the first and the third bar are white
    };
    const QImage clockwise = at("rotated90.mp4");
    ASSERT_EQ(clockwise.size(), QSize(180, 320));
    EXPECT_EQ(numberIn(clockwise.transformed(QTransform().rotate(-90))), 5);
    EXPECT_EQ(numberIn(at("rotated180.mp4").transformed(QTransform().rotate(180))), 5);
    EXPECT_EQ(numberIn(at("rotated270.mp4").transformed(QTransform().rotate(90))), 5);
}

TEST(StillDecoder, givesNone_whenThereIsNoMovie)
{
    for (const char* name : {"text.mov", "none.mov", "audio.mp4"}) {
        StillDecoder stills(testMovie(name));
        EXPECT_TRUE(stills.picture(0).isNull());
        EXPECT_TRUE(stills.picture(1).isNull());
    }
}

TEST(StillDecoder, servesThreadsInTurn)
{
    StillDecoder stills(testMovie("plain.mp4"));
    std::vector<std::thread> threads;
    std::atomic<int> right = 0;
    for (int t = 0; t < 3; ++t) {
        threads.emplace_back([&stills, &right, t] {
            for (int number = t; number < 60; number += 7)
                right += numberIn(stills.picture((number + 0.5) / 30).image) == number;
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(right, 9 + 9 + 9);
}
