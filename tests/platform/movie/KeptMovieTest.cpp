// Copies of movies from the web: they play in the place of what is on the server, and only where they can.

#include "platform/movie/KeptMovie.h"

#include "platform/base/KeptMovies.h"
#include "platform/base/Log.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>

using namespace kestro;

using State = QTMovie::State;

namespace {

class KeptMovieTest : public testing::Test {
protected:
    [[nodiscard]] QString copy() const { return keptMovieFile(m_folder.path(), m_url); }
    void keep(const char* movie) const { ASSERT_TRUE(QFile::copy(testMovie(movie).toLocalFile(), copy())); }
    /// At an address where nobody answers.
    [[nodiscard]] std::shared_ptr<QTMovie> open(const QString& folder) const
    {
        MpvMovieOptions options;
        options.audioOutputs = "null";
        options.networkTimeout = 1;
        MpvMovieLibrary library(options);
        library.setKeptMovies(folder);
        return library.movieWithURL(m_url);
    }
    [[nodiscard]] std::shared_ptr<QTMovie> open() const { return open(m_folder.path()); }

    QTemporaryDir m_folder;
    const QUrl m_url{QStringLiteral("http://127.0.0.1:9/m.mp4")};
    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
};

} // namespace

TEST_F(KeptMovieTest, copy_playsInThePlaceOfWhatIsOnTheServer)
{
    keep("plain.mp4");
    const auto movie = settled(open());
    ASSERT_EQ(movie->state(), State::Loaded);
    EXPECT_EQ(movie->url(), m_url);
    EXPECT_EQ(movie->naturalSize(), (Size{320, 180}));
    EXPECT_EQ(m_log, QStringList{QStringLiteral("Plays the kept copy of http://127.0.0.1:9/m.mp4")});
    std::vector<int> numbers;
    movie->play();
    EXPECT_TRUE(watch(*movie, numbers, [&] { return movie->rate() == 0 && !numbers.empty(); }));
    EXPECT_EQ(numbers.back(), 59);
}

TEST_F(KeptMovieTest, whatWasAskedBefore_holdsForTheCopy)
{
    keep("plain.mp4");
    const auto movie = open();
    EXPECT_EQ(movie->state(), State::Loading);
    movie->setCurrentTime({600, 600});
    movie->play();
    ASSERT_TRUE(waitUntil([&] { return movie->rate() > 0; }));
    EXPECT_GE(movie->currentTime().timeValue, 600);
}

TEST_F(KeptMovieTest, server_isAsked_whereThereIsNoCopy)
{
    const auto movie = settled(open());
    EXPECT_EQ(movie->state(), State::Failed);
    EXPECT_TRUE(m_log.filter(QStringLiteral("Plays the kept copy")).isEmpty());
}

TEST_F(KeptMovieTest, server_isAsked_whereTheCopyIsNoMovie)
{
    keep("text.mov");
    EXPECT_EQ(settled(open())->state(), State::Failed);
    EXPECT_TRUE(m_log.filter(QStringLiteral("Plays the kept copy")).isEmpty());
}

TEST_F(KeptMovieTest, copy_isNotLookedFor_whereNoneAreKept)
{
    keep("plain.mp4");
    EXPECT_EQ(settled(open(QString()))->state(), State::Failed);
}

TEST_F(KeptMovieTest, copy_isHeld_asLongAsTheMovieIsThere)
{
    keep("plain.mp4");
    auto movie = settled(open());
    const Descriptor other(::open(QFile::encodeName(copy()).constData(), O_RDONLY | O_CLOEXEC));
    EXPECT_NE(flock(other.number(), LOCK_EX | LOCK_NB), 0);
    movie.reset();
    EXPECT_TRUE(waitUntil([&other] { return flock(other.number(), LOCK_EX | LOCK_NB) == 0; }));
}

TEST_F(KeptMovieTest, copy_isNotPlayed_whileItIsTakenAway)
{
    keep("plain.mp4");
    const Descriptor other(::open(QFile::encodeName(copy()).constData(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(flock(other.number(), LOCK_EX | LOCK_NB), 0);
    EXPECT_FALSE(openKeptMovie(copy()));
}

TEST_F(KeptMovieTest, playing_isNotedAtTheFile)
{
    keep("plain.mp4");
    QFile file(copy());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime before = QDateTime::currentDateTime().addDays(-3);
    ASSERT_TRUE(file.setFileTime(before, QFileDevice::FileModificationTime));
    ASSERT_TRUE(openKeptMovie(copy()));
    EXPECT_GT(QFileInfo(copy()).lastModified(), before.addDays(2));
}

TEST_F(KeptMovieTest, link_isNoCopy)
{
    ASSERT_TRUE(QFile::link(testMovie("plain.mp4").toLocalFile(), copy()));
    EXPECT_FALSE(openKeptMovie(copy()));
}
