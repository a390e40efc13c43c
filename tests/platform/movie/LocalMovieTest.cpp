// Opening files: what is no movie fails, and a disk that does not answer holds up nobody.

#include "platform/display/view/Layer.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"

#include <QCoreApplication>

#include <atomic>
#include <future>
#include <gtest/gtest.h>

using namespace kestro;

using State = QTMovie::State;

namespace {

/// A disk that answers once it is let to.
class HeldDisk final {
public:
    ~HeldDisk() { release(); }

    /// With a patience of its own for what is not held.
    [[nodiscard]] MpvMovieOptions options(std::chrono::milliseconds longest) const
    {
        MpvMovieOptions options;
        options.audioOutputs = "null";
        options.longestProbe = longest;
        options.probe = [held = m_held, looks = m_looks](const QString& path) {
            ++*looks;
            held.wait();
            return probeMovie(path);
        };
        return options;
    }
    void release()
    {
        if (!std::exchange(m_isReleased, true)) m_release.set_value();
    }
    [[nodiscard]] int looks() const { return *m_looks; }

private:
    bool m_isReleased = false;
    std::promise<void> m_release;
    std::shared_future<void> m_held = m_release.get_future().share();
    std::shared_ptr<std::atomic<int>> m_looks = std::make_shared<std::atomic<int>>(0);
};

} // namespace

static const std::chrono::milliseconds plenty = std::chrono::minutes(3);

/// Another name of that movie, so that no other test's look into it is shared.
static QUrl ownName(const char* movie)
{
    static int names = 0;
    return QUrl::fromLocalFile(QStringLiteral(KESTRO_TEST_MOVIES "/%1%2")
                                   .arg(QString(++names, QLatin1Char('/')), QLatin1String(movie)));
}

class LocalMovieBad : public testing::TestWithParam<const char*> {};

TEST_P(LocalMovieBad, fails)
{
    const auto movie = openMovie(testMovie(GetParam()));
    ASSERT_NE(movie, nullptr);
    EXPECT_EQ(movie->state(), State::Failed);
    EXPECT_EQ(movie->naturalSize(), Size{});
    movie->play();
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_FALSE(movie->layer().hasFrame());
}

INSTANTIATE_TEST_SUITE_P(Files, LocalMovieBad,
                         testing::Values("text.mov", "none.mov", "list.m3u", "audio.mp3", "truncated.mp4",
                                         "empty.mov", "random.mov", ""));

TEST(LocalMovie, knowsNothing_untilItsFileWasLookedInto)
{
    HeldDisk disk;
    const auto movie = MpvMovieLibrary(disk.options(plenty)).movieWithURL(ownName("plain.mp4"));
    movie->play();
    EXPECT_EQ(movie->state(), State::Loading);
    EXPECT_EQ(movie->rate(), 0);
    EXPECT_EQ(movie->naturalSize(), Size{});
    EXPECT_EQ(movie->duration().timeValue, 0);
    EXPECT_FALSE(movie->layer().hasFrame());
}

TEST(LocalMovie, tellsOnce_whenItIsLoaded)
{
    HeldDisk disk;
    const auto movie = MpvMovieLibrary(disk.options(plenty)).movieWithURL(ownName("plain.mp4"));
    int told = 0;
    movie->whenSettled([&] {
        ++told;
        EXPECT_EQ(movie->state(), State::Loaded);
    });
    disk.release();
    EXPECT_TRUE(waitUntil([&told] { return told > 0; }));
    EXPECT_EQ(movie->naturalSize(), (Size{320, 180}));
    movie->whenSettled([&told] { told = 100; }); // too late
    EXPECT_TRUE(waitUntil([&movie] { return !drawn(*movie).isNull(); }));
    EXPECT_EQ(told, 1);
}

TEST(LocalMovie, playsFromWhereItWasSent_whileItsFileWasLookedInto)
{
    HeldDisk disk;
    const auto movie = MpvMovieLibrary(disk.options(plenty)).movieWithURL(ownName("plain.mp4"));
    movie->setCurrentTime({40 * 20, 600});
    EXPECT_EQ(movie->currentTime(), (MovieTime{40 * 20, 600}));
    movie->play();
    disk.release();
    std::vector<int> numbers;
    ASSERT_TRUE(
        watch(*movie, numbers, [&] { return movie->state() == State::Loaded && movie->rate() == 0; }));
    EXPECT_EQ(numbers.front(), 40);
    EXPECT_EQ(numbers.back(), 59);
}

TEST(LocalMovie, stands_whenItWasStoppedWhileItsFileWasLookedInto)
{
    HeldDisk disk;
    const auto movie = MpvMovieLibrary(disk.options(plenty)).movieWithURL(ownName("plain.mp4"));
    movie->play();
    movie->stop();
    movie->setCurrentTime({5000, 600});
    disk.release();
    EXPECT_EQ(settled(movie)->rate(), 0);
    EXPECT_EQ(movie->currentTime(), movie->duration());
}

TEST(LocalMovie, showsItsPicture_whenItWasPutOnShowWhileItsFileWasLookedInto)
{
    HeldDisk disk;
    const auto movie = MpvMovieLibrary(disk.options(plenty)).movieWithURL(ownName("plain.mp4"));
    movie->layer().willShow();
    disk.release();
    EXPECT_TRUE(waitUntil([&] { return movie->layer().hasFrame(); }));
    EXPECT_EQ(movie->rate(), 0);
}

TEST(LocalMovie, isShown_whenItIsLargerThanAStreamMayGrowTo)
{
    const auto movie = openMovie(testMovie("wide.mp4"));
    EXPECT_TRUE(waitUntil([&movie] { return numberIn(drawn(*movie)) == 0; }));
}

TEST(LocalMovie, showsNothing_whenItIsLargerThanItsContainerSays)
{
    const auto movie = openMovie(testMovie("lying.webm"));
    movie->play();
    EXPECT_TRUE(waitUntil([&movie] { return movie->rate() == 0; }));
    EXPECT_TRUE(drawn(*movie).isNull());
}

TEST(LocalMovie, isNotPlayed_byAQuestion)
{
    const auto movie = openMovie(testMovie("plain.mp4"));
    const int before = threadCount();
    EXPECT_FALSE(movie->layer().hasFrame());
    bool turned = false;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&turned] { turned = true; }, Qt::QueuedConnection);
    ASSERT_TRUE(waitUntil([&turned] { return turned; })); // whatever was posted has been done
    EXPECT_LE(threadCount(), before);
}

TEST(LocalMovie, fails_whenItsDiskDoesNotAnswer)
{
    HeldDisk disk;
    const auto movie =
        MpvMovieLibrary(disk.options(std::chrono::milliseconds(1))).movieWithURL(ownName("plain.mp4"));
    bool told = false;
    movie->whenSettled([&told] { told = true; });
    EXPECT_TRUE(waitUntil([&told] { return told; }));
    EXPECT_EQ(movie->state(), State::Failed);
    const QUrl name = movie->url();
    disk.release(); // too late for this one
    EXPECT_TRUE(waitUntil([&name] { return openMovie(name)->state() == State::Loaded; }));
    EXPECT_EQ(movie->state(), State::Failed);
}

TEST(LocalMovie, failsAtOnce_asLongAsItsDiskHasNotAnswered)
{
    HeldDisk disk;
    const QUrl hung = ownName("plain.mp4");
    const auto options = disk.options(std::chrono::milliseconds(1));
    ASSERT_TRUE(
        waitUntil([&] { return settled(MpvMovieLibrary(options).movieWithURL(hung)) && disk.looks() == 1; }));
    for (int again = 0; again < 20; ++again)
        EXPECT_EQ(MpvMovieLibrary(options).movieWithURL(hung)->state(), State::Failed);
    EXPECT_EQ(disk.looks(), 1);
    EXPECT_EQ(openMovie(testMovie("plain.mp4"))->state(), State::Loaded); // other files open all the same
    disk.release();
    EXPECT_TRUE(waitUntil([&] { return openMovie(hung)->state() == State::Loaded; }));
}

TEST(LocalMovie, mayBeLetGoOf_whileItsFileIsLookedInto)
{
    HeldDisk disk;
    const QUrl name = ownName("plain.mp4");
    auto movie = MpvMovieLibrary(disk.options(plenty)).movieWithURL(name);
    bool told = false;
    movie->whenSettled([&told] { told = true; });
    movie.reset();
    disk.release();
    EXPECT_EQ(openMovie(name)->state(), State::Loaded);
    EXPECT_FALSE(told);
}
