#include "keep/StoreTest.h"
#include "platform/base/Descriptor.h"
#include "platform/base/KeptMovies.h"

#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace kestro;

namespace {

class MovieStoreTest : public StoreTest {
protected:
    /// As a process has it that plays it.
    [[nodiscard]] Descriptor played(const QUrl& url) const
    {
        const QString path = keptMovieFile(folder(), url);
        Descriptor file(open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
        EXPECT_EQ(flock(file.number(), LOCK_SH | LOCK_NB), 0);
        return file;
    }

    const QUrl m_first = movie(QStringLiteral("first.mp4"));
    const QUrl m_second = movie(QStringLiteral("second.mp4"));
    const QUrl m_third = movie(QStringLiteral("third.mp4"));
};

} // namespace

TEST_F(MovieStoreTest, folder_isForNobodyElse)
{
    EXPECT_EQ(QFileInfo(folder()).permissions() & ~QFileDevice::Permissions(0x7700), 0);
}

TEST_F(MovieStoreTest, take_makesWhatCameACopy)
{
    EXPECT_FALSE(m_store.has(m_first));
    keep(m_first, 100);
    EXPECT_TRUE(m_store.has(m_first));
    EXPECT_EQ(QFileInfo(keptMovieFile(folder(), m_first)).size(), 100);
    EXPECT_FALSE(QFile::exists(m_store.partFile(m_first)));
    EXPECT_FALSE(m_store.has(m_second));
}

TEST_F(MovieStoreTest, names_doNotTellWhereMoviesAreFrom)
{
    keep(m_first, 100);
    for (const QString& name : names(QStringLiteral("*"))) {
        QFile file(folder() + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_FALSE((name.toUtf8() + file.readAll()).contains("first")) << qPrintable(name);
    }
}

TEST_F(MovieStoreTest, tidy_takesAwayWhatNobodyFinished)
{
    keep(m_first, 100);
    write(m_store.partFile(m_second), 100);
    m_store.tidy();
    EXPECT_TRUE(names(QStringLiteral("*.part")).isEmpty());
    EXPECT_TRUE(m_store.has(m_first));
}

TEST_F(MovieStoreTest, tidy_takesAwayACopy_thatIsNotAsItWas)
{
    keep(m_first, 100);
    keep(m_second, 100);
    keep(m_third, 100);
    QFile::resize(keptMovieFile(folder(), m_first), 99);
    QFile::remove(
        keptMovieFile(folder(), m_second).replace(QStringLiteral(".movie"), QStringLiteral(".facts")));
    m_store.tidy();
    EXPECT_FALSE(m_store.has(m_first));
    EXPECT_FALSE(m_store.has(m_second));
    EXPECT_TRUE(m_store.has(m_third));
    EXPECT_EQ(names(QStringLiteral("*.facts")).size(), 1);
}

TEST_F(MovieStoreTest, tidy_takesAwayFacts_ofACopyThatIsGone)
{
    keep(m_first, 100);
    QFile::remove(keptMovieFile(folder(), m_first));
    m_store.tidy();
    EXPECT_TRUE(names(QStringLiteral("*.facts")).isEmpty());
}

TEST_F(MovieStoreTest, tidy_takesAwayWhatThereIsNoRoomFor_leastRecentlyPlayedFirst)
{
    keep(m_first, 40'000);
    keep(m_second, 40'000);
    age(m_second, QStringLiteral(".movie"), 2);
    age(m_first, QStringLiteral(".movie"), 1);
    MovieStore smaller(folder(), 60'000);
    smaller.tidy();
    EXPECT_TRUE(m_store.has(m_first));
    EXPECT_FALSE(m_store.has(m_second));
}

TEST_F(MovieStoreTest, makeRoom_takesAwayWhatWasPlayedLeastRecently)
{
    keep(m_first, 40'000);
    keep(m_second, 40'000);
    age(m_first, QStringLiteral(".movie"), 1);
    age(m_second, QStringLiteral(".movie"), 2);
    EXPECT_TRUE(m_store.makeRoom(40'000, {}));
    EXPECT_TRUE(m_store.has(m_first));
    EXPECT_FALSE(m_store.has(m_second));
}

TEST_F(MovieStoreTest, makeRoom_takesNothingAway_whileThereIsRoom)
{
    keep(m_first, 40'000);
    EXPECT_TRUE(m_store.makeRoom(40'000, {}));
    EXPECT_TRUE(m_store.has(m_first));
}

TEST_F(MovieStoreTest, makeRoom_countsWhatIsNotWhole)
{
    keep(m_first, 40'000);
    write(m_store.partFile(m_second), 40'000);
    EXPECT_TRUE(m_store.makeRoom(40'000, {}));
    EXPECT_FALSE(m_store.has(m_first));
}

TEST_F(MovieStoreTest, makeRoom_leavesWhatIsWanted)
{
    keep(m_first, 40'000);
    keep(m_second, 40'000);
    const auto made = m_store.makeRoom(70'000, {m_second});
    ASSERT_FALSE(made);
    EXPECT_EQ(made.failure().kind, StoreFault::Kind::NoRoom);
    EXPECT_TRUE(m_store.has(m_first));
    EXPECT_TRUE(m_store.has(m_second));
}

TEST_F(MovieStoreTest, makeRoom_leavesWhatIsPlayed)
{
    keep(m_first, 40'000);
    keep(m_second, 40'000);
    age(m_first, QStringLiteral(".movie"), 2);
    const Descriptor player = played(m_first);
    EXPECT_TRUE(m_store.makeRoom(40'000, {}));
    EXPECT_TRUE(m_store.has(m_first));
    EXPECT_FALSE(m_store.has(m_second));
}

TEST_F(MovieStoreTest, makeRoom_isRefused_forMoreThanAll)
{
    keep(m_first, 100);
    for (const qint64 bytes : {room, room + 1, std::numeric_limits<qint64>::max() - 10}) {
        const auto made = m_store.makeRoom(bytes, {});
        ASSERT_FALSE(made);
        EXPECT_EQ(made.failure().kind, StoreFault::Kind::TooLarge);
    }
    EXPECT_TRUE(m_store.has(m_first));
}

TEST_F(MovieStoreTest, makeRoom_isRefused_whereTheDiskHasNone)
{
    MovieStore huge(folder(), qint64{1} << 61);
    const auto made = huge.makeRoom(qint64{1} << 60, {});
    ASSERT_FALSE(made);
    EXPECT_EQ(made.failure().kind, StoreFault::Kind::Disk);
}

TEST_F(MovieStoreTest, refusal_lastsAWeek)
{
    EXPECT_FALSE(m_store.isRefused(m_first));
    m_store.refuse(m_first);
    EXPECT_TRUE(m_store.isRefused(m_first));
    EXPECT_FALSE(m_store.isRefused(m_second));
    age(m_first, QStringLiteral(".refused"), 8);
    EXPECT_FALSE(m_store.isRefused(m_first));
    m_store.tidy();
    EXPECT_TRUE(names(QStringLiteral("*.refused")).isEmpty());
}

TEST_F(MovieStoreTest, copy_isStale_afterAWeek)
{
    const RemoteVersion version{"\"one\"", "Sat, 21 Nov 2026 10:00:00 GMT"};
    keep(m_first, 100, version);
    EXPECT_FALSE(m_store.staleVersion(m_first));
    age(m_first, QStringLiteral(".facts"), 8);
    EXPECT_EQ(m_store.staleVersion(m_first), version);
    m_store.noteChecked(m_first);
    EXPECT_FALSE(m_store.staleVersion(m_first));
}

TEST_F(MovieStoreTest, copy_isNotStale_whileItIsPlayed)
{
    keep(m_first, 100);
    age(m_first, QStringLiteral(".facts"), 8);
    const Descriptor player = played(m_first);
    EXPECT_FALSE(m_store.staleVersion(m_first));
}

TEST_F(MovieStoreTest, summary_tellsWhatIsKept)
{
    EXPECT_EQ(m_store.summary().movies, 0);
    EXPECT_TRUE(m_store.summary().lastFetched.isNull());
    keep(m_first, 40'000);
    keep(m_second, 100);
    EXPECT_EQ(m_store.summary().movies, 2);
    EXPECT_GE(m_store.summary().bytes, 40'100);
    EXPECT_LE(m_store.summary().bytes, 41'100);
    EXPECT_LE(std::abs(m_store.summary().lastFetched.secsTo(QDateTime::currentDateTime())), secondsOfDay);
    EXPECT_EQ(MovieStore::summaryOf(m_home.filePath(QStringLiteral("none"))).movies, 0);
}

TEST_F(MovieStoreTest, claim_waitsForTheEndOfAnother)
{
    int told[2] = {-1, -1};
    ASSERT_EQ(pipe(told), 0);
    const pid_t other = fork();
    if (other == 0) {
        m_store = MovieStore(folder(), room);          // this copy of the claim
        const bool isClaimed = m_store.claim().isOk(); // not before the other process has let go
        _exit(::write(told[1], isClaimed ? "y" : "n", 1) == 1 ? 0 : 1);
    }
    const Descriptor reading(told[0]);
    Descriptor(told[1]).reset();
    fcntl(reading.number(), F_SETFL, O_NONBLOCK);
    char answer = 0;
    EXPECT_LT(read(reading.number(), &answer, 1), 0);
    m_store = MovieStore(folder(), room);
    int status = -1;
    ASSERT_EQ(waitpid(other, &status, 0), other);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(read(reading.number(), &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
}

TEST_F(MovieStoreTest, claim_fails_whereTheFolderIsALink)
{
    const QString link = m_home.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(folder(), link));
    EXPECT_FALSE(MovieStore(link, room).claim());
}
