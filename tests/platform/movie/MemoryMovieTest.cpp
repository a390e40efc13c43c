#include "platform/movie/MemoryMovie.h"

#include "platform/base/Clock.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/StillMovie.h"

#include <gtest/gtest.h>

using namespace kestro;

static const QUrl url(QStringLiteral("http://example.org/m.mov"));

TEST(MemoryMovie, knowsNothing_whileLoading)
{
    ManualClock clock;
    MemoryMovie movie(url, {.seconds = 10, .loadsAfter = 3}, clock);
    movie.play();
    clock.advance(2);
    EXPECT_EQ(movie.state(), QTMovie::State::Loading);
    EXPECT_EQ(movie.naturalSize(), Size{});
    EXPECT_EQ(movie.duration().timeValue, 0);
    EXPECT_EQ(movie.rate(), 0);
    EXPECT_FALSE(movie.layer().hasFrame());
}

TEST(MemoryMovie, playsFromWhenItIsLoaded_whenPlayWasAskedBefore)
{
    ManualClock clock;
    MemoryMovie movie(url, {.seconds = 10, .loadsAfter = 3}, clock);
    movie.play();
    clock.advance(5);
    EXPECT_EQ(movie.rate(), 1);
    EXPECT_EQ(movie.currentTime().timeValue, 1200);
    EXPECT_EQ(movie.duration().timeValue, 6000);
}

TEST(MemoryMovie, announcesItsPicture_whenItIsLoaded)
{
    ManualClock clock;
    MemoryMovie movie(url, {.loadsAfter = 3}, clock);
    int announced = 0;
    movie.layer().setPictureHandler([&announced] { ++announced; });
    EXPECT_EQ(movie.rate(), 0);
    EXPECT_EQ(announced, 0);
    clock.advance(3);
    EXPECT_EQ(movie.state(), QTMovie::State::Loaded);
    EXPECT_EQ(movie.rate(), 0);
    EXPECT_EQ(announced, 1);
}

TEST(MemoryMovie, fails_whenDescribedSo)
{
    ManualClock clock;
    MemoryMovie movie(url, {.loadsAfter = 3, .failsLoading = true}, clock);
    movie.play();
    clock.advance(4);
    EXPECT_EQ(movie.state(), QTMovie::State::Failed);
    EXPECT_EQ(movie.rate(), 0);
    EXPECT_TRUE(drawn(movie).isNull());
    EXPECT_TRUE(movie.copyForStills()->still({0, 600}).isNull());
}

TEST(MemoryMovie, showsItsColour)
{
    const ManualClock clock;
    MemoryMovie movie(url, {.colour = Qt::cyan}, clock);
    EXPECT_EQ(drawn(movie).pixelColor(319, 179), QColor(Qt::cyan));
}

TEST(MemoryMovieLibrary, opensWhatWasDescribed_andRemembersEveryTry)
{
    const ManualClock clock;
    MemoryMovieLibrary library(clock);
    library.describe(QStringLiteral("file:///good.mov"), {});
    library.describe(QStringLiteral("file:///bad.mov"), {.opens = false});
    const auto good = library.movieWithURL(QUrl(QStringLiteral("file:///good.mov")));
    EXPECT_NE(good, nullptr);
    EXPECT_EQ(library.movieWithURL(QUrl(QStringLiteral("file:///bad.mov"))), nullptr);
    EXPECT_EQ(library.movieWithURL(QUrl(QStringLiteral("file:///unknown.mov"))), nullptr);
    EXPECT_EQ(library.tried(),
              (std::vector<QString>{QStringLiteral("file:///good.mov"), QStringLiteral("file:///bad.mov"),
                                    QStringLiteral("file:///unknown.mov")}));
}

TEST(MemoryMovieLibrary, forgetsMovies_thatNobodyHolds)
{
    const ManualClock clock;
    MemoryMovieLibrary library(clock);
    library.describe(url.toString(), {});
    const auto first = library.movieWithURL(url);
    static_cast<void>(library.movieWithURL(url));
    ASSERT_EQ(library.alive().size(), 1U);
    EXPECT_EQ(library.alive().front(), first);
}
