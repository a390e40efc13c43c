#include "keep/MovieKeeper.h"

#include "keep/StoreTest.h"
#include "platform/base/Clock.h"
#include "platform/base/KeptMovies.h"
#include "platform/base/Log.h"
#include "support/LoopbackServer.h"

#include <csignal>
#include <sys/resource.h>
#include <thread>

using namespace kestro;

namespace {

using Answer = LoopbackServer::Answer;
using Then = LoopbackServer::Then;

class MovieKeeperTest : public StoreTest {
protected:
    [[nodiscard]] static QUrl at(const LoopbackServer& server, const char* path)
    {
        return QUrl(QString::fromStdString(server.url(path)));
    }
    [[nodiscard]] bool isKept(const QUrl& url) const { return QFile::exists(keptMovieFile(folder(), url)); }
    [[nodiscard]] QByteArray kept(const QUrl& url) const
    {
        QFile file(keptMovieFile(folder(), url));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Has all of them seen to.
    void keepAll(const QList<QUrl>& wanted)
    {
        int rounds = 0;
        while (rounds < 20 && m_keeper.keepOne(wanted))
            ++rounds;
        EXPECT_LT(rounds, 20) << "no end";
    }
    [[nodiscard]] FetchLimits limits() const
    {
        FetchLimits limits;
        limits.bytes = 2 * room;
        return limits;
    }
    void expectNothingIsLeft() const
    {
        EXPECT_TRUE(names(QStringLiteral("*.movie")).isEmpty());
        EXPECT_TRUE(names(QStringLiteral("*.part")).isEmpty());
    }

    ManualClock m_clock;
    QByteArray m_isMovie = "movie"; ///< what such a file begins with
    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
    MovieKeeper m_keeper{m_store,
                         [this](const QString& path) -> Result<void> {
                             QFile file(path);
                             const bool isMovie =
                                 file.open(QIODevice::ReadOnly) && file.readAll().startsWith(m_isMovie);
                             if (isMovie) return {};
                             return Error{QStringLiteral("no movie")};
                         },
                         m_clock, limits()};
};

class LyingServer : public MovieKeeperTest, public testing::WithParamInterface<Answer> {};

} // namespace

TEST_F(MovieKeeperTest, keepOne_keepsTheFirstThatIsNotKept)
{
    const LoopbackServer server(
        [](const std::string& path, const auto&) { return LoopbackServer::whole("movie" + path); });
    const QList<QUrl> wanted{at(server, "/a.mp4"), at(server, "/b.mp4")};
    EXPECT_TRUE(m_keeper.keepOne(wanted));
    EXPECT_EQ(kept(wanted[0]), "movie/a.mp4");
    EXPECT_FALSE(isKept(wanted[1]));
    EXPECT_TRUE(m_keeper.keepOne(wanted));
    EXPECT_EQ(kept(wanted[1]), "movie/b.mp4");
    EXPECT_FALSE(m_keeper.keepOne(wanted));
    EXPECT_EQ(server.requests().size(), 2U);
    EXPECT_EQ(m_log.size(), 2);
    EXPECT_TRUE(m_log.value(0).startsWith(QStringLiteral("Keeps ") + wanted[0].toString()));
}

TEST_F(MovieKeeperTest, keepOne_asksNobody_forWhatIsNoMovieOnTheWeb)
{
    const LoopbackServer server([](const auto&, const auto&) { return LoopbackServer::whole("movie"); });
    keepAll({at(server, "/a.m3u8"), at(server, "/a.MPD"), at(server, "/a.swf"),
             QUrl(QStringLiteral("file:///etc/passwd")), QUrl(QStringLiteral("ftp://h/a.mp4"))});
    EXPECT_TRUE(server.requests().empty());
    expectNothingIsLeft();
}

INSTANTIATE_TEST_SUITE_P(
    Ways, LyingServer,
    testing::Values(
        Answer{"HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\nmovie", Then::Close},             // less
        Answer{"HTTP/1.1 200 OK\r\nContent-Length: 999999999999\r\n\r\nmovie", Then::Close},    // no end
        Answer{"HTTP/1.1 200 OK\r\nContent-Length: -5\r\n\r\nmovie", Then::Close},              // nonsense
        Answer{"HTTP/1.1 200 OK\r\n\r\nmovie", Then::Close},                                    // unknown
        Answer{"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nmovie\r\n0\r\n\r\n"}, // unknown
        Answer{"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n<!DOCTYPE", Then::Close},           // a page
        Answer{"HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n", Then::Close},                    // nothing
        Answer{"HTTP/1.1 404 Not Found\r\nContent-Length: 5\r\n\r\nmovie", Then::Close},
        Answer{"HTTP/1.1 304 Not Modified\r\n\r\n", Then::Close},
        Answer{"HTTP/1.1 302 Found\r\nLocation: file:///etc/passwd\r\nContent-Length: 0\r\n\r\n",
               Then::Close}));

TEST_P(LyingServer, hasNothingKept)
{
    const LoopbackServer server([](const auto&, const auto&) { return GetParam(); });
    const QUrl movie = at(server, "/a.mp4");
    keepAll({movie});
    EXPECT_FALSE(isKept(movie));
    expectNothingIsLeft();
    EXPECT_EQ(server.requests().size(), 1U);
    ASSERT_EQ(m_log.size(), 1);
    EXPECT_TRUE(m_log[0].startsWith(QStringLiteral("Cannot keep ") + movie.toString()))
        << qPrintable(m_log[0]);
}

TEST_F(MovieKeeperTest, keepOne_takesNoMoreThanTheServerSaid)
{
    const LoopbackServer server([](const auto&, const auto&) {
        return Answer{"HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nmovie and more", Then::Close};
    });
    const QUrl movie = at(server, "/a.mp4");
    keepAll({movie});
    EXPECT_EQ(kept(movie), "movie");
}

TEST_F(MovieKeeperTest, whatFailed_isAskedForAgain_afterAWhile)
{
    bool isThere = false;
    const LoopbackServer server([&isThere](const auto&, const auto&) {
        return isThere ? LoopbackServer::whole("movie") : LoopbackServer::whole("x", "503 Busy");
    });
    const QUrl movie = at(server, "/a.mp4");
    keepAll({movie});
    isThere = true;
    m_clock.advance(500);
    EXPECT_FALSE(m_keeper.keepOne({movie}));
    m_clock.advance(101);
    EXPECT_TRUE(m_keeper.keepOne({movie}));
    EXPECT_TRUE(isKept(movie));
}

TEST_F(MovieKeeperTest, whatIsNoMovie_isNotAskedForAgain)
{
    const LoopbackServer server([](const auto&, const auto&) { return LoopbackServer::whole("<html>"); });
    keepAll({at(server, "/a.mp4")});
    m_clock.advance(24 * 3600);
    EXPECT_FALSE(m_keeper.keepOne({at(server, "/a.mp4")}));
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(MovieKeeperTest, cancel_leavesNothing_andItIsFetchedOnceAllowed)
{
    bool hangs = true;
    LoopbackServer server([&hangs](const auto&, const auto&) {
        return hangs ? Answer{"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nmovie", Then::Hang}
                     : LoopbackServer::whole("movie");
    });
    const QUrl movie = at(server, "/a.mp4");
    std::thread canceller([&] {
        EXPECT_TRUE(server.waitForRequests(1));
        m_keeper.cancel();
    });
    EXPECT_TRUE(m_keeper.keepOne({movie}));
    canceller.join();
    expectNothingIsLeft();
    EXPECT_TRUE(m_log.isEmpty());
    hangs = false;
    m_keeper.allow();
    EXPECT_TRUE(m_keeper.keepOne({movie}));
    EXPECT_TRUE(isKept(movie));
}

TEST_F(MovieKeeperTest, fullStore_asksForNothingMore_andSaysNothing)
{
    const std::string large = "movie" + std::string(60'000, 'x');
    const LoopbackServer server([&large](const auto&, const auto&) { return LoopbackServer::whole(large); });
    const QList<QUrl> wanted{at(server, "/a.mp4"), at(server, "/b.mp4"), at(server, "/c.mp4")};
    keepAll(wanted);
    EXPECT_TRUE(isKept(wanted[0]));
    EXPECT_FALSE(isKept(wanted[1]));
    EXPECT_EQ(server.requests().size(), 2U);
    EXPECT_EQ(m_log.size(), 1);
    EXPECT_LE(m_store.summary().bytes, room);
}

TEST_F(MovieKeeperTest, newMovie_takesThePlaceOfOneThatIsNotWanted)
{
    const std::string large = "movie" + std::string(60'000, 'x');
    const LoopbackServer server([&large](const auto&, const auto&) { return LoopbackServer::whole(large); });
    keepAll({at(server, "/a.mp4")});
    keepAll({at(server, "/b.mp4")});
    EXPECT_FALSE(isKept(at(server, "/a.mp4")));
    EXPECT_TRUE(isKept(at(server, "/b.mp4")));
}

TEST_F(MovieKeeperTest, movieLargerThanAll_isPassedOver)
{
    const LoopbackServer server([](const std::string& path, const auto&) {
        return LoopbackServer::whole("movie" + std::string(path == "/a.mp4" ? 150'000 : 10, 'x'));
    });
    keepAll({at(server, "/a.mp4"), at(server, "/b.mp4")});
    EXPECT_FALSE(isKept(at(server, "/a.mp4")));
    EXPECT_TRUE(isKept(at(server, "/b.mp4")));
    EXPECT_EQ(m_log.size(), 2);
}

TEST_F(MovieKeeperTest, fullDisk_endsIt_withOneLine)
{
    const LoopbackServer server(
        [](const auto&, const auto&) { return LoopbackServer::whole("movie" + std::string(50'000, 'x')); });
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit small{20'000, usual.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    keepAll({at(server, "/a.mp4"), at(server, "/b.mp4")});
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &usual), 0);
    std::signal(SIGXFSZ, before);
    expectNothingIsLeft();
    EXPECT_EQ(server.requests().size(), 1U);
    ASSERT_EQ(m_log.size(), 1);
    EXPECT_TRUE(m_log[0].startsWith(QStringLiteral("Movies are not kept any more: ")));
    EXPECT_FALSE(m_keeper.keepOne({at(server, "/c.mp4")}));
}

TEST_F(MovieKeeperTest, staleCopy_isComparedWithItsServer)
{
    std::string heads;
    bool isChanged = false;
    const LoopbackServer server([&](const auto&, const std::string& head) {
        heads += head;
        const bool isKnown = head.find("If-None-Match: \"one\"\r\n") != std::string::npos;
        return isKnown && !isChanged ? Answer{"HTTP/1.1 304 Not Modified\r\n\r\n"}
                                     : LoopbackServer::whole(isChanged ? "movie, newer" : "movie", "200 OK",
                                                             "ETag: \"one\"\r\nLast-Modified: then\r\n");
    });
    const QUrl movie = at(server, "/a.mp4");
    keepAll({movie});
    EXPECT_EQ(heads.find("If-"), std::string::npos);
    age(movie, QStringLiteral(".facts"), 8);
    EXPECT_TRUE(m_keeper.keepOne({movie}));
    EXPECT_NE(heads.find("If-Modified-Since: then\r\n"), std::string::npos);
    EXPECT_EQ(kept(movie), "movie");
    EXPECT_FALSE(m_keeper.keepOne({movie}));
    isChanged = true;
    age(movie, QStringLiteral(".facts"), 8);
    EXPECT_TRUE(m_keeper.keepOne({movie}));
    EXPECT_EQ(kept(movie), "movie, newer");
    EXPECT_EQ(server.requests().size(), 3U);
}

TEST_F(MovieKeeperTest, staleCopy_stays_whereItsServerHasNoMovieAnyMore)
{
    std::string answer = "movie";
    const LoopbackServer server([&answer](const auto&, const auto&) {
        return answer.empty() ? LoopbackServer::whole({}, "410 Gone") : LoopbackServer::whole(answer);
    });
    const QUrl movie = at(server, "/a.mp4");
    keepAll({movie});
    for (const std::string now : {"", "<html>"}) {
        answer = now;
        age(movie, QStringLiteral(".facts"), 8);
        keepAll({movie});
        EXPECT_EQ(kept(movie), "movie");
    }
}

TEST_F(MovieKeeperTest, nothingButPlainWords_goesBackToTheServer)
{
    std::string heads;
    const LoopbackServer server([&heads](const auto&, const std::string& head) {
        heads += head;
        return LoopbackServer::whole(
            "movie", "200 OK", "ETag: \"\x01\xff\"\r\nLast-Modified: " + std::string(300, 'x') + "\r\n");
    });
    const QUrl movie = at(server, "/a.mp4");
    keepAll({movie});
    age(movie, QStringLiteral(".facts"), 8);
    EXPECT_TRUE(m_keeper.keepOne({movie}));
    EXPECT_EQ(heads.find("If-"), std::string::npos);
}
