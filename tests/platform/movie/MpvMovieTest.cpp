// What only the real movies do: the right picture at the right time.

#include "platform/base/Log.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/MovieTeardown.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>
#include <thread>

using namespace kestro;

/// Waits until the movie draws that number.
static bool shows(QTMovie& movie, int number)
{
    return waitUntil([&] { return numberIn(drawn(movie)) == number; });
}

TEST(MpvMovieLibrary, refusesOtherSchemes)
{
    for (const char* url : {"ftp://example.org/m.mov", "av://lavfi:testsrc", "rtsp://example.org/m",
                            "edl://m.mov", "http:", "file://server/m.mov", "/tmp/m.mov", "", "concat:a|b"})
        EXPECT_EQ(openMovie(QUrl(QLatin1String(url))), nullptr) << url;
}

TEST(MpvMovieLibrary, opensAFile_byTheNameOfThisMachine)
{
    QUrl url = testMovie("plain.mp4");
    url.setHost(QStringLiteral("localhost"));
    const auto movie = openMovie(url);
    ASSERT_NE(movie, nullptr);
    movie->play();
    EXPECT_TRUE(waitUntil([&] { return numberIn(drawn(*movie)) >= 1; }));
    EXPECT_EQ(movie->url(), url);
}

TEST(MpvMovie, takesNoPlayer_untilItIsPlayed)
{
    finishMovieTeardown();
    std::thread([] {}).join(); // a sanitizer starts a thread of its own with the first
    const int before = threadCount();
    const auto movie = openMovie(testMovie("plain.mp4"));
    movie->setCurrentTime({600, 600});
    movie->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    movie->setMuted(true);
    EXPECT_TRUE(waitUntil([before] { return threadCount() <= before; })); // the look into the file is over
    const QStringList lying =
        threadsBeside({}); // fewer than before, where threads of earlier movies were still ending
    movie->play();
    EXPECT_TRUE(waitUntil([&lying] { return !threadsBeside(lying).isEmpty(); }));
}

TEST(MpvMovie, runsNoScripts_whenItPlays)
{
    const auto movie = openMovie(testMovie("plain.mp4"));
    movie->play();
    ASSERT_TRUE(waitUntil([&] { return numberIn(drawn(*movie)) >= 1; }));
    const QStringList names = threadNames();
    EXPECT_FALSE(names.filter(QStringLiteral("demux")).isEmpty()) << "the player's threads have names";
    EXPECT_EQ(names.filter(QStringLiteral("lua")), QStringList());
}

TEST(MpvMovie, drawsNothing_untilThereIsAPicture)
{
    const auto movie = openMovie(testMovie("plain.mp4"));
    QImage image(32, 18, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    EXPECT_FALSE(movie->layer().render({image.bits(), 32, 18, static_cast<int>(image.bytesPerLine())}));
    EXPECT_EQ(image.pixelColor(16, 9), QColor(Qt::magenta));
}

TEST(MpvMovie, showsEveryPicture_inOrder)
{
    const auto movie = openMovie(testMovie("plain.mp4"));
    std::vector<int> numbers;
    movie->play();
    ASSERT_TRUE(watch(*movie, numbers, [&] { return movie->rate() == 0 && !numbers.empty(); }));
    EXPECT_EQ(numbers.front(), 0);
    EXPECT_EQ(numbers.back(), 59);
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    EXPECT_GT(numbers.size(), 30U); // a busy machine drops some
}

class MpvSeeks : public testing::TestWithParam<const char*> {};

TEST_P(MpvSeeks, areExact)
{
    const auto movie = openMovie(testMovie(GetParam()));
    for (const int number : {30, 31, 29, 0, 59, 44, 45, 46, 16, 1}) {
        movie->setCurrentTime({number * 20, 600});
        EXPECT_TRUE(shows(*movie, number)) << number << " but " << numberIn(drawn(*movie));
    }
}

TEST_P(MpvSeeks, showThePictureThatIsOnThen_betweenTwo)
{
    const auto movie = openMovie(testMovie(GetParam()));
    for (const int number : {30, 0, 59, 44}) {
        movie->setCurrentTime({number * 20 + 12, 600});
        EXPECT_TRUE(shows(*movie, number)) << number << " but " << numberIn(drawn(*movie));
    }
}

INSTANTIATE_TEST_SUITE_P(Containers, MpvSeeks,
                         testing::Values("plain.mp4", "plain.mkv", "plain.webm", "sound.mp4"));

TEST(MpvMovie, showsNothingElseFirst_whenItStartsInTheMiddle)
{
    const auto movie = openMovie(testMovie("plain.mp4"));
    movie->setCurrentTime({40 * 20, 600});
    std::vector<int> numbers;
    movie->play();
    ASSERT_TRUE(watch(*movie, numbers, [&] { return movie->rate() == 0; }));
    EXPECT_EQ(numbers.front(), 40);
}

TEST(MpvMovie, showsNothingElseFirst_whenSentRightAfterPlay)
{
    const auto movie = openMovie(testMovie("plain.mp4"));
    movie->play();
    movie->setCurrentTime({40 * 20, 600});
    std::vector<int> numbers;
    ASSERT_TRUE(watch(*movie, numbers, [&] { return movie->rate() == 0; }));
    EXPECT_GE(numbers.front(), 40);
}

TEST(MpvMovie, isDrawnUpright)
{
    const auto upright = [](const char* name, int width, int height, int back) {
        const auto movie = openMovie(testMovie(name));
        movie->setCurrentTime({5 * 20, 600});
        return waitUntil([&] {
            return numberIn(drawn(*movie, width, height).transformed(QTransform().rotate(back))) == 5;
        });
    };
    EXPECT_TRUE(upright("rotated90.mp4", 180, 320, -90));
    EXPECT_TRUE(upright("rotated180.mp4", 320, 180, 180));
    EXPECT_TRUE(upright("rotated270.mp4", 180, 320, 90));
}

TEST(MpvMovie, fillsTargetsOfAnySize)
{
    const auto movie = openMovie(testMovie("plain.mp4"));
    movie->setCurrentTime({5 * 20, 600});
    ASSERT_TRUE(shows(*movie, 5));
    for (const QSize size : {QSize(64, 201), QSize(1366, 768), QSize(640, 7), QSize(322, 180)})
        EXPECT_EQ(numberIn(drawn(*movie, size.width(), size.height())), 5);
}

TEST(MpvMovie, goesOn_whileNobodyDrawsIt)
{
    const auto movie = openMovie(testMovie("sound.mp4"));
    movie->play();
    EXPECT_TRUE(waitUntil([&] { return movie->rate() == 0; }));
    EXPECT_EQ(movie->currentTime(), movie->duration());
    EXPECT_TRUE(shows(*movie, 59));
}

TEST(MpvMovie, playsToItsEnd_withoutASoundDevice)
{
    const auto movie =
        settled(MpvMovieLibrary({.audioOutputs = "alsa"}).movieWithURL(testMovie("sound.mp4")));
    movie->play();
    EXPECT_TRUE(waitUntil([&] { return movie->rate() == 0; }));
    EXPECT_EQ(movie->currentTime(), movie->duration());
}

TEST(MpvMovie, playsOn_whenUnmutedAndMutedAgain)
{
    const auto movie = openMovie(testMovie("sound.mp4"));
    movie->setMuted(true);
    movie->play();
    ASSERT_TRUE(waitUntil([&] { return movie->currentTime().timeValue > 200; }));
    movie->setMuted(false);
    movie->setVolume(0.5F);
    ASSERT_TRUE(waitUntil([&] { return movie->currentTime().timeValue > 600; }));
    EXPECT_EQ(movie->rate(), 1);
    movie->setMuted(true);
    EXPECT_TRUE(waitUntil([&] { return movie->rate() == 0; }));
    EXPECT_EQ(movie->currentTime(), movie->duration());
}

TEST(MpvMovie, logsNothing_whenAllIsWell)
{
    std::vector<QString> lines;
    const LogCapture capture([&lines](const QString& line) { lines.push_back(line); });
    for (const char* name : {"short.mp4", "animated.gif", "sound.mp4", "plain.webm", "rotated90.mp4"}) {
        const auto movie = openMovie(testMovie(name));
        movie->play();
        EXPECT_TRUE(waitUntil([&] { return movie->rate() == 0; })) << name;
    }
    EXPECT_EQ(lines, std::vector<QString>());
}

TEST(MpvMovie, mayBeLetGoOf_whenItAnnouncesAPicture)
{
    auto movie = openMovie(testMovie("plain.mp4"));
    movie->play();
    movie->layer().setPictureHandler([&movie] { movie.reset(); });
    EXPECT_TRUE(waitUntil([&movie] { return movie == nullptr; }));
    finishMovieTeardown();
}

TEST(MpvMovie, mayBeLetGoOf_atAnyMoment)
{
    for (int turn = 0; turn < 12; ++turn) {
        const auto movie = openMovie(testMovie("sound.mp4"));
        movie->play();
        int turns = 0;
        EXPECT_TRUE(waitUntil([&] { return ++turns > turn; }));
    }
    finishMovieTeardown();
}

TEST(MpvMovie, mayBeLetGoOf_onAnotherThread)
{
    auto movie = openMovie(testMovie("plain.mp4"));
    const std::weak_ptr<QTMovie> watched = movie;
    movie->play();
    std::thread([held = std::move(movie)]() mutable {
        static_cast<void>(held->copyForStills()->still({600, 600}));
        held.reset();
    }).join();
    EXPECT_TRUE(waitUntil([&watched] { return watched.expired(); }));
    finishMovieTeardown();
}

TEST(MpvMovie, givesStills_thatMatchWhatIsPlayed)
{
    const auto movie = openMovie(testMovie("plain.mp4"));
    movie->play();
    for (const int number : {10, 59, 0, 33})
        EXPECT_EQ(numberIn(movie->copyForStills()->still({number * 20, 600}).image), number);
    EXPECT_EQ(movie->rate(), 1);
}
