#include "engine/EntryOpener.h"

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"

namespace kestro {

namespace {

class EntryOpenerTest : public EngineTest {
protected:
    bool opens(const QString& url) { return !isEmpty(opener.open(QUrl(url))); }

    Settings settings{store, {}};
    Playlist playlist{settings, trailers, false};
    EntryOpener opener{{settings, playlist, movies, random, clock, false, [] { return false; }}};
};

const QString address = QStringLiteral("http://m/a.mov");
const QString lineOfFailure = QStringLiteral("Failed to load movie:http://m/a.mov");

} // namespace

TEST_F(EntryOpenerTest, remoteEntryThatFailed_isNotAskedForHalfAMinute)
{
    EXPECT_FALSE(opens(address));
    describe("a.mov");
    clock.advance(29.9);
    EXPECT_FALSE(opens(address));
    EXPECT_EQ(movies.tried().size(), 1U);
    EXPECT_EQ(logged(lineOfFailure), 1);
    clock.advance(0.2);
    EXPECT_TRUE(opens(address));
}

TEST_F(EntryOpenerTest, localEntryThatFailed_isAskedEachTime)
{
    const QString file = QStringLiteral("file:///a.mov");
    EXPECT_FALSE(opens(file));
    EXPECT_FALSE(opens(file));
    EXPECT_EQ(logged("Failed to load movie:file:///a.mov"), 2);
    EXPECT_EQ(playlist.failedURLList(), QSet<QString>{file});
}

TEST_F(EntryOpenerTest, retry_asksAtOnce_andLogsNoFailureTwice)
{
    EXPECT_FALSE(opens(address));
    opener.beginRetry();
    EXPECT_FALSE(opens(address));
    EXPECT_EQ(movies.tried().size(), 2U);
    EXPECT_EQ(logged(lineOfFailure), 1);
    opener.beginRetry();
    EXPECT_FALSE(opens("http://m/b.mov"));
    EXPECT_EQ(logged("Failed to load movie:http://m/b.mov"), 1);
}

TEST_F(EntryOpenerTest, failuresAreLoggedAgain_onceARetryFoundSomething)
{
    EXPECT_FALSE(opens(address));
    opener.beginRetry();
    describe("b.mov");
    opener.opened(opener.open(urlOf("b.mov")));
    EXPECT_FALSE(opens(address));
    EXPECT_EQ(logged(lineOfFailure), 2);
}

TEST_F(EntryOpenerTest, forgetFailures_letsEntriesBeAskedAtOnce)
{
    EXPECT_FALSE(opens(address));
    describe("a.mov");
    opener.forgetFailures();
    EXPECT_TRUE(opens(address));
}

} // namespace kestro
