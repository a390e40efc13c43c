#include "publish/MovieReader.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {
namespace {

QString testMovie(const char* name)
{
    return QStringLiteral(KESTRO_TEST_MOVIES "/") + QString::fromLatin1(name);
}

TEST(StillMovieReader, learnsTheNaturalSizeAndDuration)
{
    StillMovieReader reader;
    SourceMovie movie;
    ASSERT_TRUE(reader.learn(movie, testMovie("anamorphic.mp4")));
    EXPECT_EQ(movie.width, 1024);
    EXPECT_EQ(movie.height, 576);
    EXPECT_GT(movie.seconds, 0);
}

TEST(StillMovieReader, saysWhy_whenAFileIsNoMovie)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("torn.mov"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    StillMovieReader reader;
    SourceMovie movie;
    const auto learned = reader.learn(movie, path);
    ASSERT_FALSE(learned.isOk());
    EXPECT_EQ(learned.error(), QStringLiteral("damaged, or no movie"));
}

TEST(StillMovieReader, poster_isAPictureOfTheMoviesShape_andTheSameEachTime)
{
    StillMovieReader reader;
    SourceMovie movie;
    ASSERT_TRUE(reader.learn(movie, testMovie("anamorphic.mp4")));
    const QByteArray poster = reader.poster(movie, testMovie("anamorphic.mp4"));
    EXPECT_EQ(QImage::fromData(poster, "jpeg").size(), QSize(960, 540));
    EXPECT_EQ(reader.poster(movie, testMovie("anamorphic.mp4")), poster);
}

TEST(StillMovieReader, poster_isEmpty_whenThereIsNoPicture)
{
    StillMovieReader reader;
    EXPECT_TRUE(reader.poster({QStringLiteral("x"), 1, 1, 480, 204, 5}, QStringLiteral("/no/such/movie.mov"))
                    .isEmpty());
}

} // namespace
} // namespace kestro
