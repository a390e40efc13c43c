#include "platform/base/Clock.h"
#include "platform/movie/MemoryMovie.h"
#include "platform/movie/StillMovie.h"

#include <gtest/gtest.h>
#include <limits>

using namespace kestro;

static const QUrl url(QStringLiteral("file:///m.mov"));

TEST(HandleFunctions, moveAndTellThePosition)
{
    const ManualClock clock;
    MemoryMovie movie(url, {.seconds = 10}, clock);
    SetMovieTimeValue(movie, 1234);
    EXPECT_EQ(GetMovieTime(movie), 1234);
    EXPECT_EQ(GetMovieDuration(movie), 6000);
}

TEST(HandleFunctions, areCutTo32Bits_whenMovieIsVeryLong)
{
    const ManualClock clock;
    MemoryMovie movie(url, {.seconds = 1e9}, clock);
    movie.setCurrentTime({500'000'000'000, 600});
    EXPECT_EQ(GetMovieDuration(movie), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(GetMovieTime(movie), std::numeric_limits<std::int32_t>::max());
}

TEST(HandleFunctions, takeStillsOfTheBoxSize)
{
    const ManualClock clock;
    MemoryMovie movie(url, {.colour = Qt::green}, clock);
    const auto copy = movie.copyForStills();
    SetMovieBox(*copy, {.top = 10, .left = 20, .bottom = 58, .right = 120});
    const Picture still = GetMoviePict(*copy, 600);
    EXPECT_EQ(still.image.size(), QSize(100, 48));
    EXPECT_EQ(still.image.pixelColor(99, 47), QColor(Qt::green));
}
