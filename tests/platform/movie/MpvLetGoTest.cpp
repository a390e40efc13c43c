// Real movies that gave back what playing them takes.

#include "platform/movie/MovieServer.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/QTMovie.h"

#include <gtest/gtest.h>

using namespace kestro;

TEST(MpvLetGo, keepsWhatItLearnt_ofAMovieOnAServer)
{
    MovieServer server;
    ASSERT_TRUE(server.start());
    const auto movie = openMovie(server.addressOf("good/plain.mp4"));
    ASSERT_TRUE(movie);
    ASSERT_EQ(movie->state(), QTMovie::State::Loaded);
    movie->setCurrentTime({600, 600});
    movie->letGo();
    EXPECT_EQ(movie->state(), QTMovie::State::Loaded);
    EXPECT_EQ(movie->naturalSize(), (Size{320, 180}));
    EXPECT_EQ(movie->duration(), (MovieTime{1200, 600}));
    EXPECT_EQ(movie->currentTime(), (MovieTime{600, 600}));
    movie->play();
    EXPECT_EQ(movie->rate(), 1);
    EXPECT_TRUE(waitUntil([&movie] { return movie->currentTime().timeValue > 700; }));
}

TEST(MpvLetGo, givesItsThreadsBack)
{
    const auto movie = openMovie(testMovie("plain.mp4"));
    const QStringList before = threadsBeside({}); // threads of earlier movies may still be ending
    movie->play();
    EXPECT_TRUE(waitUntil([&before] { return !threadsBeside(before).isEmpty(); }));
    movie->letGo();
    EXPECT_TRUE(waitUntil([&before] { return threadsBeside(before).isEmpty(); }));
}
