// Stills of the picture that a movie shows, which need no decoder.

#include "platform/movie/MovieTest.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

using namespace kestro;

namespace {

/// A movie that plays and whose file is gone: nothing but its player has any more pictures of it.
class ShownFrame : public testing::Test {
protected:
    ShownFrame()
    {
        const QString path = folder.filePath(QStringLiteral("plain.mp4"));
        EXPECT_TRUE(QFile::copy(testMovie("plain.mp4").toLocalFile(), path));
        movie = openMovie(QUrl::fromLocalFile(path));
        copy = movie->copyForStills();
        movie->setAttribute(MovieAttribute::Loops, true);
        movie->play();
        EXPECT_TRUE(waitUntil([this] { return numberIn(drawn(*movie)) > 5; }));
        QFile::remove(path);
    }

    QTemporaryDir folder;
    std::shared_ptr<QTMovie> movie;
    std::shared_ptr<StillMovie> copy;
};

} // namespace

TEST_F(ShownFrame, isDrawnOnceMore_inTheSizeOfStills)
{
    copy->setStillSize(320, 180);
    Picture still;
    int shown = -1;
    const auto taken = [&] {
        shown = numberIn(drawn(*movie));
        const MovieTime time = movie->currentTime();
        std::thread([&] { still = copy->still(time); }).join();
        return !still.isNull();
    };
    ASSERT_TRUE(waitUntil(taken));
    EXPECT_EQ(still.image.size(), QSize(320, 180));
    EXPECT_EQ(still.size, (Size{320, 180}));
    EXPECT_EQ(still.image.constBits()[3], 255); // else it is lost in the transparent window of a fade
    EXPECT_LE(std::abs(numberIn(still.image) - shown), 1);
}

TEST_F(ShownFrame, isNoStillOfAnotherTime)
{
    copy->setStillSize(320, 180);
    movie->stop();
    const std::int64_t here = movie->currentTime().timeValue;
    EXPECT_TRUE(copy->still({here + 300, 600}).isNull());
    EXPECT_TRUE(copy->still({here > 300 ? here - 300 : here + 600, 600}).isNull());
}

TEST_F(ShownFrame, isNoStill_whereTheSizeIsNotSet)
{
    EXPECT_TRUE(copy->still(movie->currentTime()).isNull());
}

TEST_F(ShownFrame, isGone_withItsMovie)
{
    copy->setStillSize(320, 180);
    const MovieTime time = movie->currentTime();
    movie.reset();
    EXPECT_TRUE(copy->still(time).isNull());
}
