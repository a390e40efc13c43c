#include "platform/movie/StreamableMovie.h"

#include "platform/movie/MovieProbe.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/StillDecoder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace kestro;

static QString pathOf(const char* name)
{
    return testMovie(name).toLocalFile();
}

TEST(StreamableMovie, isNotOneWhoseIndexIsLast)
{
    EXPECT_FALSE(isStreamable(pathOf("plain.mp4")));
    EXPECT_FALSE(isStreamable(pathOf("plain.mov")));
}

TEST(StreamableMovie, isAnyOther)
{
    for (const char* name : {"plain.mkv", "plain.webm", "text.mov", "empty.mov", "random.mov", "missing.mov"})
        EXPECT_TRUE(isStreamable(pathOf(name))) << name;
}

class StreamableCopy : public testing::TestWithParam<const char*> {};

TEST_P(StreamableCopy, isTheSameMovie)
{
    QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy.part"));
    const auto written = writeStreamable(pathOf(GetParam()), copy);
    ASSERT_TRUE(written) << qPrintable(written.error());
    EXPECT_TRUE(isStreamable(copy));
    const auto was = probeMovie(pathOf(GetParam()));
    const auto is = probeMovie(copy);
    ASSERT_TRUE(is) << qPrintable(plainWords(is.failure()));
    EXPECT_EQ(is.value().naturalSize(), was.value().naturalSize());
    EXPECT_EQ(is.value().rotation, was.value().rotation);
    EXPECT_NEAR(is.value().seconds, was.value().seconds, 0.05);
    EXPECT_EQ(is.value().hasSound, was.value().hasSound);
    EXPECT_EQ(StillDecoder(QUrl::fromLocalFile(copy)).picture(1).image,
              StillDecoder(testMovie(GetParam())).picture(1).image);
}
INSTANTIATE_TEST_SUITE_P(Movies, StreamableCopy,
                         testing::Values("plain.mp4", "plain.mov", "sound.mp4", "rotated90.mp4",
                                         "anamorphic.mp4"));

TEST(StreamableMovie, tellsWhyItCannotBeWritten)
{
    QTemporaryDir folder;
    EXPECT_FALSE(writeStreamable(pathOf("text.mov"), folder.filePath(QStringLiteral("copy.mov"))));
    EXPECT_FALSE(writeStreamable(pathOf("missing.mov"), folder.filePath(QStringLiteral("copy.mov"))));
    EXPECT_FALSE(writeStreamable(pathOf("plain.mp4"), folder.filePath(QStringLiteral("missing/copy.mov"))));
}
