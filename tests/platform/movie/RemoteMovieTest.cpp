// Movies over http: loading, failing, breaking off, and never reaching the files of this machine.

#include "platform/base/Log.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/MovieProbe.h"
#include "platform/movie/MovieTeardown.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

#include <QProcess>

#include <gtest/gtest.h>

using namespace kestro;

using State = QTMovie::State;

class RemoteMovie : public testing::Test {
protected:
    void SetUp() override
    {
        m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_server.start(QStringLiteral(MOVIE_SERVER), {QStringLiteral(KESTRO_TEST_MOVIES)});
        while (!m_server.canReadLine())
            ASSERT_TRUE(m_server.waitForReadyRead(180000));
        m_port = m_server.readLine().trimmed().toInt();
        ASSERT_GT(m_port, 0);
    }

    void TearDown() override { stopServer(); }

    void stopServer()
    {
        if (m_server.state() == QProcess::NotRunning) return;
        m_server.closeWriteChannel();
        EXPECT_TRUE(m_server.waitForFinished(180000));
    }

    [[nodiscard]] QUrl addressOf(const char* path) const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/%2").arg(m_port).arg(QLatin1String(path)));
    }
    [[nodiscard]] std::shared_ptr<QTMovie> open(const char* path, int networkTimeout = 1) const
    {
        MpvMovieOptions options;
        options.networkTimeout = networkTimeout;
        return open(path, options);
    }
    [[nodiscard]] std::shared_ptr<QTMovie> open(const char* path, MpvMovieOptions options) const
    {
        options.audioOutputs = "null";
        return MpvMovieLibrary(options).movieWithURL(addressOf(path));
    }
    /// The requests that the server got so far.
    [[nodiscard]] int requests()
    {
        m_server.waitForReadyRead(0);
        m_requests += m_server.readAll();
        return static_cast<int>(m_requests.count('\n'));
    }

    QProcess m_server;
    QByteArray m_requests;
    int m_port = 0;
    std::vector<QString> m_logged;
    LogCapture m_capture{[this](const QString& line) { m_logged.push_back(line); }};
};

static bool loads(const QTMovie& movie)
{
    return waitUntil([&movie] { return movie.state() != State::Loading; }) && movie.state() == State::Loaded;
}

static bool fails(const QTMovie& movie)
{
    return waitUntil([&movie] { return movie.state() != State::Loading; }) && movie.state() == State::Failed;
}

TEST_F(RemoteMovie, knowsNothing_whileLoading)
{
    const auto movie = open("good/plain.mp4");
    ASSERT_NE(movie, nullptr);
    EXPECT_EQ(movie->state(), State::Loading);
    EXPECT_EQ(movie->naturalSize(), Size{});
    EXPECT_EQ(movie->duration().timeValue, 0);
    movie->play();
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_FALSE(movie->layer().hasFrame());
}

TEST_F(RemoteMovie, learnsSizeAndDuration)
{
    const auto movie = open("good/plain.mp4");
    ASSERT_TRUE(loads(*movie));
    EXPECT_EQ(movie->naturalSize(), (Size{320, 180}));
    EXPECT_EQ(movie->duration(), (MovieTime{1200, 600}));
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_EQ(movie->currentTime().timeValue, 0);
}

class RemoteMovieFrom : public RemoteMovie, public testing::WithParamInterface<const char*> {};

TEST_P(RemoteMovieFrom, playsToItsEnd)
{
    const auto movie = open(GetParam());
    movie->play();
    ASSERT_TRUE(loads(*movie));
    EXPECT_EQ(movie->rate(), 1);
    std::vector<int> numbers;
    // The last frame may be drawn a moment after the sound has ended.
    ASSERT_TRUE(watch(*movie, numbers,
                      [&] { return movie->rate() == 0 && !numbers.empty() && numbers.back() == 59; }));
    EXPECT_EQ(movie->currentTime(), movie->duration());
    EXPECT_TRUE(m_logged.empty()) << qPrintable(m_logged.front());
}

INSTANTIATE_TEST_SUITE_P(Ways, RemoteMovieFrom,
                         testing::Values("good/plain.mp4", "good/plain.webm", "plain/plain.mp4",
                                         "moved/sound.mp4"));

TEST_F(RemoteMovie, isProbed)
{
    const auto facts = probeRemoteMovie(addressOf("good/plain.mp4"), std::chrono::seconds(10));
    ASSERT_TRUE(facts) << qPrintable(plainWords(facts.failure()));
    EXPECT_EQ(facts.value().codedWidth, 320);
    EXPECT_NEAR(facts.value().seconds, 2, 0.04);
}

TEST_F(RemoteMovie, isNotProbed_whenTheServerDoesNotHaveIt)
{
    const auto facts = probeRemoteMovie(addressOf("missing"), std::chrono::seconds(10));
    ASSERT_FALSE(facts);
    EXPECT_EQ(facts.failure(), MovieFault{MovieFault::Kind::NotOnServer});
}

TEST_F(RemoteMovie, isNotProbed_whenItSaysNothing)
{
    const auto facts = probeRemoteMovie(addressOf("stalled/longgop.mp4"), std::chrono::milliseconds(200));
    ASSERT_FALSE(facts);
    EXPECT_EQ(facts.failure(), MovieFault{MovieFault::Kind::NoAnswer});
}

TEST_F(RemoteMovie, startsWhereItWasSent_whileItLoaded)
{
    const auto movie = open("good/plain.mp4");
    movie->setCurrentTime({40 * 20, 600});
    std::vector<int> numbers;
    movie->play();
    ASSERT_TRUE(
        watch(*movie, numbers, [&] { return movie->state() == State::Loaded && movie->rate() == 0; }));
    EXPECT_GE(numbers.front(), 40);
    EXPECT_EQ(numbers.back(), 59);
}

TEST_F(RemoteMovie, isSoughtExactly)
{
    const auto movie = open("good/plain.mp4");
    ASSERT_TRUE(loads(*movie));
    for (const int number : {44, 3}) {
        movie->setCurrentTime({number * 20, 600});
        EXPECT_TRUE(waitUntil([&] { return numberIn(drawn(*movie)) == number; }));
    }
}

TEST_F(RemoteMovie, isUpright_fromItsFirstPicture)
{
    const auto movie = open("good/rotated90.mp4");
    QImage first;
    movie->setCurrentTime({5 * 20, 600});
    movie->layer().setPictureHandler([&] {
        if (first.isNull()) first = drawn(*movie, 180, 320);
    });
    ASSERT_TRUE(waitUntil([&] { return !first.isNull(); }));
    EXPECT_EQ(numberIn(first.transformed(QTransform().rotate(-90))), 5);
    ASSERT_TRUE(loads(*movie));
    EXPECT_EQ(movie->naturalSize(), (Size{180, 320}));
}

TEST_F(RemoteMovie, isShown_whenItIsLargerThanAStreamMayGrowTo)
{
    const auto movie = open("good/wide.mp4", 10);
    ASSERT_TRUE(loads(*movie));
    EXPECT_EQ(movie->naturalSize(), (Size{4800, 2700}));
    EXPECT_TRUE(waitUntil([&] { return numberIn(drawn(*movie)) == 0; }));
}

TEST_F(RemoteMovie, turnsAtBothEnds)
{
    const auto movie = open("good/short.mp4", 10);
    movie->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    movie->play();
    ASSERT_TRUE(loads(*movie));
    int turns = 0;
    float last = 1;
    EXPECT_TRUE(
        waitUntil([&] { return turns += movie->rate() != std::exchange(last, movie->rate()), turns == 4; }));
    EXPECT_EQ(m_logged, std::vector<QString>());
}

TEST_F(RemoteMovie, loopsInstead_andSaysSoOnce_whereItCannotBeSought)
{
    const auto movie = open("plain/short.mp4");
    movie->setAttribute(MovieAttribute::LoopsBackAndForth, true);
    movie->play();
    int rounds = 0;
    std::int64_t last = 0;
    EXPECT_TRUE(waitUntil([&] {
        const std::int64_t time = movie->currentTime().timeValue;
        rounds += time < std::exchange(last, time);
        return rounds == 3;
    }));
    EXPECT_EQ(movie->rate(), 1);
    EXPECT_TRUE(movie->attribute(MovieAttribute::LoopsBackAndForth));
    ASSERT_EQ(m_logged.size(), 1U);
    EXPECT_TRUE(m_logged.front().contains(QLatin1String("back and forth")));
}

TEST_F(RemoteMovie, givesStills)
{
    const auto movie = open("good/plain.mp4");
    EXPECT_EQ(numberIn(movie->copyForStills()->still({44 * 20, 600}).image), 44);
}

class RemoteMovieBad : public RemoteMovie, public testing::WithParamInterface<const char*> {};

TEST_P(RemoteMovieBad, fails)
{
    const auto movie = open(GetParam());
    movie->play();
    EXPECT_TRUE(fails(*movie));
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_FALSE(movie->layer().hasFrame());
    movie->play();
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_TRUE(movie->copyForStills()->still({0, 600}).isNull());
}

INSTANTIATE_TEST_SUITE_P(Answers, RemoteMovieBad,
                         testing::Values("missing", "silent", "good/text.mov", "good/empty.mov",
                                         "good/audio.mp3", "good/audio.mp4", "good/cover.mp3",
                                         "good/picture.png", "good/truncated.mp4"));
INSTANTIATE_TEST_SUITE_P(WaysToFiles, RemoteMovieBad,
                         testing::Values("to-file/plain.mp4", "m3u/plain.mp4", "pls/plain.mp4",
                                         "hls/plain.mp4", "hls-path/plain.mp4", "hls-concat/plain.mp4",
                                         "hls-key/plain.mp4", "concat/plain.mp4", "edl/plain.mp4",
                                         "cue/plain.mp4", "dash/plain.mp4"));
INSTANTIATE_TEST_SUITE_P(RedirectsElsewhere, RemoteMovieBad,
                         testing::Values("led-file/plain.mp4", "led-edl/plain.mp4", "led-ftp/plain.mp4",
                                         "led-data/plain.mp4", "led-concat/plain.mp4",
                                         "led-subfile/plain.mp4"));

TEST_F(RemoteMovie, fails_andSaysWhy_whenItIsTooLarge)
{
    for (const char* path : {"good/huge.ivf", "good/huge.gif"}) {
        m_logged.clear();
        EXPECT_TRUE(fails(*open(path))) << path;
        const QString line = addressOf(path).toString() + QStringLiteral(": too large: 16000x16000");
        EXPECT_EQ(m_logged, std::vector<QString>{line}) << path;
    }
}

TEST_F(RemoteMovie, fails_whenConnectionIsRefused)
{
    stopServer();
    const auto movie = open("good/plain.mp4");
    EXPECT_TRUE(fails(*movie));
}

class RemoteMovieCut : public RemoteMovie, public testing::WithParamInterface<const char*> {};

TEST_P(RemoteMovieCut, playsWhatThereIs_andHasBrokenOff)
{
    const auto movie = open(GetParam());
    movie->play();
    ASSERT_TRUE(loads(*movie));
    EXPECT_TRUE(waitUntil([&] { return movie->rate() == 0; }));
    EXPECT_GT(movie->currentTime().timeValue, 100);
    EXPECT_LT(movie->currentTime().timeValue, 1100);
    EXPECT_EQ(movie->state(), State::Failed);
    EXPECT_TRUE(movie->layer().hasFrame()); // the last one stands
    EXPECT_GE(numberIn(drawn(*movie)), 3);
}

INSTANTIATE_TEST_SUITE_P(Ways, RemoteMovieCut, testing::Values("broken/plain.mkv", "stalled/plain.mkv"));

/// Fails soon where it makes no progress, while no read of it times out.
static MpvMovieOptions impatient()
{
    MpvMovieOptions options;
    options.networkTimeout = 60;
    options.longestStall = std::chrono::milliseconds(500);
    return options;
}

TEST_F(RemoteMovie, breaksOff_whenItsServerOnlyTrickles)
{
    const auto movie = open("trickle/plain.mkv", impatient());
    movie->play();
    ASSERT_TRUE(loads(*movie));
    ASSERT_TRUE(waitUntil([&] { return movie->state() == State::Failed; }));
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_GT(movie->currentTime().timeValue, 100);
    EXPECT_LT(movie->currentTime().timeValue, 1100);
    movie->play();
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_TRUE(movie->layer().hasFrame()); // the last one stands
}

TEST_F(RemoteMovie, doesNotBreakOff_whileItStands)
{
    const auto standing = open("trickle/plain.mkv", impatient());
    standing->play();
    ASSERT_TRUE(loads(*standing));
    ASSERT_TRUE(waitUntil([&] { return standing->currentTime().timeValue > 100; }));
    standing->stop();
    const auto playing = open("trickle/plain.mkv", impatient());
    playing->play();
    ASSERT_TRUE(loads(*playing));
    ASSERT_TRUE(waitUntil([&] { return playing->state() == State::Failed; }));
    EXPECT_EQ(standing->state(), State::Loaded);
    standing->play();
    EXPECT_TRUE(waitUntil([&] { return standing->state() == State::Failed; }));
}

TEST_F(RemoteMovie, fails_whenItsServerTricklesFromTheStart)
{
    EXPECT_TRUE(fails(*open("drip/plain.mkv")));
}

TEST_F(RemoteMovie, breaksOff_whenItLoops_andItsServerGoesAway)
{
    MpvMovieOptions options;
    options.cacheBytes = 64 << 10;                   // so that each round is read anew
    options.longestStall = std::chrono::minutes(10); // it begins anew again and again: no stall
    const auto movie = open("good/large.mp4", options);
    movie->setAttribute(MovieAttribute::Loops, true);
    movie->play();
    ASSERT_TRUE(loads(*movie));
    std::int64_t last = 0;
    ASSERT_TRUE(waitUntil([&] {
        return movie->currentTime().timeValue < std::exchange(last, movie->currentTime().timeValue);
    }));
    EXPECT_EQ(movie->rate(), 1);
    stopServer();
    EXPECT_TRUE(waitUntil([&] { return movie->state() == State::Failed; }));
    EXPECT_EQ(movie->rate(), 0);
}

TEST_F(RemoteMovie, loadsAndPlays_whenItDoesNotSayHowLongItIs)
{
    const auto movie = open("live/noduration.webm");
    ASSERT_TRUE(loads(*movie));
    EXPECT_EQ(movie->naturalSize(), (Size{320, 180}));
    EXPECT_EQ(movie->rate(), 0);
    movie->play();
    EXPECT_EQ(movie->rate(), 1);
    std::vector<int> numbers;
    EXPECT_TRUE(watch(*movie, numbers, [&] { return !numbers.empty() && numbers.back() > 50; }));
    EXPECT_TRUE(waitUntil([&] { return movie->currentTime().timeValue > 1100; }));
}

TEST_F(RemoteMovie, isFetchedOnceToPlay_andOnceMoreForStills)
{
    const auto movie = open("plain/plain.webm"); // knows no ranges: a reader asks once
    const auto copy = movie->copyForStills();
    movie->play();
    ASSERT_TRUE(loads(*movie));
    ASSERT_TRUE(waitUntil([&] { return movie->rate() == 0; }));
    EXPECT_EQ(requests(), 1);
    for (const int number : {0, 10, 30, 44})
        EXPECT_EQ(numberIn(copy->still({number * 20, 600}).image), number);
    EXPECT_EQ(requests(), 2);
}

TEST_F(RemoteMovie, failsAtOnce_whenItsIndexIsAtTheEnd_andTheServerKnowsNoRanges)
{
    EXPECT_TRUE(fails(*open("late/plain.mp4", 600)));
}

TEST_F(RemoteMovie, mayBeLetGoOf_whileNothingAnswers)
{
    finishMovieTeardown();
    const int before = threadCount();
    {
        const auto movie = open("silent");
        EXPECT_EQ(movie->state(), State::Loading);
    }
    {
        const auto movie = open("stalled/plain.mkv");
        movie->play();
        ASSERT_TRUE(loads(*movie));
    }
    EXPECT_TRUE(waitUntil([before] { return threadCount() == before; }));
}
