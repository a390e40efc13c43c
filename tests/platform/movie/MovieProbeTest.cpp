#include "platform/movie/MovieProbe.h"

#include "platform/base/Log.h"
#include "platform/movie/MovieTest.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace kestro;

static Result<MovieFacts, MovieFault> probe(const char* name)
{
    return probeMovie(testMovie(name).toLocalFile());
}

class MovieProbeGood : public testing::TestWithParam<const char*> {};

TEST_P(MovieProbeGood, tellsSizeAndDuration)
{
    const auto facts = probe(GetParam());
    ASSERT_TRUE(facts) << qPrintable(plainWords(facts.failure()));
    EXPECT_EQ(facts.value().codedWidth, 320);
    EXPECT_EQ(facts.value().codedHeight, 180);
    EXPECT_NEAR(facts.value().seconds, 2, 0.04);
}
INSTANTIATE_TEST_SUITE_P(Containers, MovieProbeGood,
                         testing::Values("plain.mp4", "plain.mov", "plain.mkv", "plain.webm", "sound.mp4",
                                         "noduration.webm"));

class MovieProbeBad : public testing::TestWithParam<const char*> {};

TEST_P(MovieProbeBad, refusesWhatIsNoMovie)
{
    ASSERT_TRUE(QFile::exists(testMovie(GetParam()).toLocalFile()));
    const auto facts = probe(GetParam());
    ASSERT_FALSE(facts);
    EXPECT_FALSE(plainWords(facts.failure()).isEmpty());
}
INSTANTIATE_TEST_SUITE_P(Files, MovieProbeBad,
                         testing::Values("audio.mp3", "audio.mp4", "cover.mp3", "picture.png", "picture.mov",
                                         "still.gif", "truncated.mp4", "text.mov", "empty.mov", "random.mov",
                                         "list.m3u", "list.mov", "edl.mov", "concat.mov", "hls.m3u8", "."));

TEST(MovieProbe, tellsOneFaultFromAnother)
{
    using Kind = MovieFault::Kind;
    for (const auto& [name, kind] :
         {std::pair{"none.mov", Kind::NoFile}, std::pair{".", Kind::NoRegularFile},
          std::pair{"empty.mov", Kind::EmptyFile}, std::pair{"hls.m3u8", Kind::NoMovieFormat},
          std::pair{"audio.mp4", Kind::NoVideo}, std::pair{"text.mov", Kind::Damaged}})
        EXPECT_EQ(probe(name).failure(), MovieFault{kind}) << name;
}

class MovieProbeHuge : public testing::TestWithParam<const char*> {};

TEST_P(MovieProbeHuge, refusesWhatIsTooLarge_andSaysSo)
{
    QStringList log;
    const LogCapture capture([&log](const QString& line) { log.append(line); });
    const auto facts = probe(GetParam());
    ASSERT_FALSE(facts);
    EXPECT_EQ(facts.failure(), (MovieFault{MovieFault::Kind::TooLarge, QStringLiteral("16000x16000")}));
    EXPECT_EQ(log,
              QStringList{testMovie(GetParam()).toString() + QStringLiteral(": too large: 16000x16000")});
}
INSTANTIATE_TEST_SUITE_P(Files, MovieProbeHuge, testing::Values("huge.ivf", "huge.gif"));

TEST(MovieProbe, tellsSound)
{
    EXPECT_TRUE(probe("sound.mp4").value().hasSound);
    EXPECT_FALSE(probe("plain.mp4").value().hasSound);
}

TEST(MovieProbe, tellsHowHardItIsToDecode)
{
    EXPECT_NEAR(probe("plain.mp4").value().framesPerSecond, 30, 0.1);
    EXPECT_FALSE(probe("plain.mp4").value().hasNewerCodec); // H.264
    EXPECT_TRUE(probe("plain.webm").value().hasNewerCodec); // VP9
}

TEST(MovieProbe, appliesThePixelAspect)
{
    EXPECT_EQ(probe("anamorphic.mp4").value().naturalSize(), (Size{1024, 576}));
}

TEST(MovieProbe, turnsTheSizeUpright)
{
    EXPECT_EQ(probe("rotated90.mp4").value().rotation, 90);
    EXPECT_EQ(probe("rotated180.mp4").value().rotation, 180);
    EXPECT_EQ(probe("rotated270.mp4").value().rotation, 270);
    EXPECT_EQ(probe("rotated90.mp4").value().naturalSize(), (Size{180, 320}));
    EXPECT_EQ(probe("rotated180.mp4").value().naturalSize(), (Size{320, 180}));
    EXPECT_EQ(probe("rotated270.mp4").value().naturalSize(), (Size{180, 320}));
}

TEST(MovieProbe, takesAnAnimatedGif)
{
    const auto facts = probe("animated.gif");
    ASSERT_TRUE(facts);
    EXPECT_NEAR(facts.value().seconds, 1, 0.01);
}

TEST(MovieProbe, refusesMissingFiles_pipesAndDevices)
{
    QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe.mov"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(probeMovie(folder.filePath(QStringLiteral("none.mov"))));
    EXPECT_FALSE(probeMovie(pipe));
    EXPECT_FALSE(probeMovie(QStringLiteral("/dev/zero")));
    EXPECT_FALSE(probeMovie(QString()));
}

TEST(MovieProbe, takesAnyName)
{
    QTemporaryDir folder;
    for (const char* name : {"http:%41 #?é.mov", "-x.mov", "movie"}) {
        const QString path = folder.filePath(QString::fromUtf8(name));
        ASSERT_TRUE(QFile::copy(testMovie("plain.mp4").toLocalFile(), path));
        EXPECT_TRUE(probeMovie(path)) << name;
    }
}

TEST(MovieProbe, endsAtOnce_whenToldToStop)
{
    const auto stop = std::make_unique<std::stop_source>();
    stop->request_stop();
    EXPECT_FALSE(probeMovie(testMovie("plain.mp4").toLocalFile(), stop->get_token()));
}
