// Real movies that play back and forth.

#include "platform/base/Log.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/QTMovie.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

using namespace kestro;

struct TurningCase {
    const char* name;
    bool muted;
    bool unmutedLater;
};

static void PrintTo(const TurningCase& of, std::ostream* out)
{
    *out << of.name << (of.muted ? " muted" : "") << (of.unmutedLater ? " at first" : "");
}

class MpvTurns : public testing::TestWithParam<TurningCase> {};

TEST_P(MpvTurns, atBothEnds_showingPicturesInOrder)
{
    std::vector<QString> lines;
    const LogCapture capture([&lines](const QString& line) { lines.push_back(line); });
    const auto movie = openMovie(testMovie(GetParam().name));
    movie->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    movie->setMuted(GetParam().muted);
    movie->setCurrentTime({40 * 20, 600});
    std::vector<int> numbers;
    movie->play();
    bool wasBackwards = false;
    ASSERT_TRUE(watch(*movie, numbers, [&] {
        wasBackwards |= movie->rate() < 0;
        if (GetParam().unmutedLater && wasBackwards) movie->setMuted(false);
        return wasBackwards && movie->rate() > 0 && numbers.back() > 5;
    }));
    const auto last = std::find(numbers.begin(), numbers.end(), 59);
    ASSERT_NE(last, numbers.end());
    EXPECT_TRUE(std::is_sorted(numbers.begin(), last));
    const auto first = std::find(last, numbers.end(), 0);
    ASSERT_NE(first, numbers.end());
    EXPECT_TRUE(std::is_sorted(last, first, std::greater<>())) << testing::PrintToString(numbers);
    EXPECT_GT(first - last, 30);
    EXPECT_TRUE(std::is_sorted(first, numbers.end()));
    EXPECT_TRUE(lines.empty()) << qPrintable(lines.front());
}

INSTANTIATE_TEST_SUITE_P(
    Movies, MpvTurns,
    testing::Values(TurningCase{"plain.mp4", false, false}, TurningCase{"plain.mkv", false, false},
                    TurningCase{"plain.webm", false, false}, TurningCase{"opengop.mkv", false, false},
                    TurningCase{"sound.mp4", false, false}, TurningCase{"sound.mp4", true, false},
                    TurningCase{"sound.mp4", true, true}));

namespace {

/// One that was sent to `number` of its pictures and plays back and forth from there.
std::shared_ptr<QTMovie> turning(const char* name, int number)
{
    auto movie = openMovie(testMovie(name));
    movie->setMuted(true);
    movie->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    movie->setCurrentTime({number * 20, 600});
    movie->play();
    return movie;
}

bool comesToTurn(QTMovie& movie)
{
    return waitUntil([&movie] { return movie.rate() < 0; });
}

} // namespace

TEST(MpvTurning, showsThePicture_atTheTurnItself)
{
    const auto movie = turning("far30.mp4", 225);
    int first = -1;
    movie->layer().setPictureHandler([&] {
        if (first < 0 && movie->rate() < 0) first = numberIn(drawn(*movie));
    });
    ASSERT_TRUE(comesToTurn(*movie));
    EXPECT_EQ(first, 254) << "not decoded before the turn";
}

TEST(MpvTurning, goesOnBackwards_howeverFarKeyframesAre)
{
    const auto movie = turning("far30.mp4", 248);
    std::vector<int> numbers;
    ASSERT_TRUE(watch(*movie, numbers, [&] { return movie->rate() < 0 && numbers.back() < 246; }));
    const auto last = std::find(numbers.begin(), numbers.end(), 254);
    ASSERT_NE(last, numbers.end());
    EXPECT_TRUE(std::is_sorted(last, numbers.end(), std::greater<>())) << testing::PrintToString(numbers);
}

TEST(MpvTurning, goesOnBackwardsElsewhere_whenSentThere)
{
    const auto movie = turning("plain.mp4", 55);
    ASSERT_TRUE(comesToTurn(*movie));
    movie->setCurrentTime({600, 600});
    EXPECT_EQ(movie->rate(), -1);
    EXPECT_EQ(movie->currentTime().timeValue, 600);
    std::int64_t latest = 0;
    EXPECT_TRUE(waitUntil([&] {
        latest = std::max(latest, movie->currentTime().timeValue);
        return movie->currentTime().timeValue < 500;
    }));
    EXPECT_EQ(latest, 600);
    EXPECT_EQ(movie->rate(), -1);
}

TEST(MpvTurning, standsAndGoesOnBackwards_whenStoppedThere)
{
    const auto movie = turning("plain.mp4", 55);
    ASSERT_TRUE(comesToTurn(*movie));
    ASSERT_TRUE(waitUntil([&] { return movie->currentTime().timeValue < 1100; }));
    movie->stop();
    EXPECT_EQ(movie->rate(), 0);
    const std::int64_t time = movie->currentTime().timeValue;
    EXPECT_GT(time, 600);
    for (const int number : {20, 7, 44}) {
        movie->setCurrentTime({number * 20, 600});
        EXPECT_EQ(movie->currentTime().timeValue, number * 20);
        EXPECT_TRUE(waitUntil([&] { return numberIn(drawn(*movie)) == number; }));
    }
    movie->play();
    EXPECT_EQ(movie->rate(), -1);
    EXPECT_TRUE(waitUntil([&] { return movie->currentTime().timeValue < 40 * 20; }));
}

TEST(MpvTurning, endsAtTheBeginning_whenSentThereWhileItStandsBackwards)
{
    const auto movie = turning("plain.mp4", 55);
    ASSERT_TRUE(comesToTurn(*movie));
    movie->stop();
    movie->setCurrentTime({0, 600});
    EXPECT_EQ(movie->currentTime().timeValue, 0);
    movie->play();
    EXPECT_EQ(movie->rate(), 1);
    EXPECT_TRUE(waitUntil([&] { return movie->currentTime().timeValue > 100; }));
}

TEST(MpvTurning, isDrawnInSoftware_onlyWhileItGoesBackwards)
{
    const auto movie = turning("short.mp4", 0);
    ASSERT_TRUE(waitUntil([&] { return movie->layer().hasFrame(); }));
    const bool drawsWithOpenGL = movie->layer().drawsWithOpenGL();
    EXPECT_EQ(drawsWithOpenGL, testOpenGL() != nullptr);
    ASSERT_TRUE(waitUntil([&] { return movie->rate() < 0 && numberIn(drawn(*movie)) < 9; }));
    EXPECT_FALSE(movie->layer().drawsWithOpenGL());
    ASSERT_TRUE(waitUntil([&] { return movie->rate() > 0; }));
    EXPECT_EQ(movie->layer().drawsWithOpenGL(), drawsWithOpenGL);
}

TEST(MpvTurning, mayBeLetGoOf_atAnyMoment)
{
    for (int turn = 0; turn < 8; ++turn) {
        const auto movie = turning("far30.mp4", 253);
        ASSERT_TRUE(comesToTurn(*movie));
        int turns = 0;
        EXPECT_TRUE(waitUntil([&] { return ++turns > turn; }));
    }
}
