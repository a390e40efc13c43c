#include "engine/MoviePick.h"

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"

namespace kestro {

namespace {

class MoviePickTest : public EngineTest {
protected:
    using State = MoviePick::State;

    std::unique_ptr<MoviePick> pick(bool waitsForServers = false)
    {
        return sequencer.newNextMovie({}, {}, {.waitsForServers = waitsForServers, .wake = {}});
    }
    static QString nameOf(const MovieContent& content)
    {
        const auto* movie = std::get_if<std::shared_ptr<QTMovie>>(&content);
        return movie ? (*movie)->url().fileName() : QString();
    }
    /// A playlist of local files; each is found out about after a second.
    void setSlowDisk(const QStringList& names, const QStringList& bad)
    {
        QStringList urls;
        for (const auto& name : names) {
            urls.append("file:///" + name);
            movies.describe(urls.back(), {.loadsAfter = 1, .failsLoading = bad.contains(name)});
        }
        setPlaylist(urls);
        playlist.setCurIdx(0);
    }

    Settings settings{store, {}};
    Playlist playlist{settings, trailers, false};
    MovieSequencer sequencer{{settings, playlist, movies, random, clock, false, [] { return false; }}};
};

} // namespace

TEST_F(MoviePickTest, step_doesNotWaitForADisk)
{
    setSlowDisk({"a.mov", "b.mov"}, {"a.mov"});
    const auto search = pick();
    EXPECT_EQ(search->step(), State::Searching);
    EXPECT_EQ(search->step(), State::Searching);
    EXPECT_EQ(movies.tried().size(), 1U);
    clock.advance(1);
    EXPECT_EQ(search->step(), State::Searching);
    EXPECT_EQ(logged("Failed to load movie:file:///a.mov"), 1);
    clock.advance(1);
    EXPECT_EQ(search->step(), State::Found);
    EXPECT_EQ(search->step(), State::Found);
    EXPECT_EQ(nameOf(search->takeContent()), "b.mov");
    EXPECT_EQ(playlist.curIdx(), 0);
}

TEST_F(MoviePickTest, step_findsNothing_onceEveryFileFailed)
{
    setSlowDisk({"a.mov", "b.mov"}, {"a.mov", "b.mov"});
    const auto search = pick();
    for (int second = 0; second < 2; ++second) {
        EXPECT_EQ(search->step(), State::Searching);
        clock.advance(1);
    }
    EXPECT_EQ(search->step(), State::Nothing);
    EXPECT_EQ(search->step(), State::Nothing);
    EXPECT_TRUE(isEmpty(search->takeContent()));
    EXPECT_EQ(movies.tried().size(), 2U);
}

TEST_F(MoviePickTest, step_takesARemoteMovie_asSoonAsItBeginsToLoad)
{
    setPlaylist({"far.mov"});
    describe("far.mov", {.loadsAfter = 5});
    EXPECT_EQ(pick()->step(), State::Found);
}

TEST_F(MoviePickTest, step_waitsForServers_whereItIsToldTo)
{
    setPlaylist({"far.mov", "b.mov"});
    describe("far.mov", {.loadsAfter = 5, .failsLoading = true});
    describe("b.mov");
    playlist.setCurIdx(0);
    const auto search = pick(true);
    EXPECT_EQ(search->step(), State::Searching);
    clock.advance(5);
    EXPECT_EQ(search->step(), State::Found);
    EXPECT_EQ(nameOf(search->takeContent()), "b.mov");
}

TEST_F(MoviePickTest, step_leavesTheEventLoopRoom_inALongListOfFailures)
{
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names.append(QStringLiteral("x%1.mov").arg(i));
    setPlaylist(names);
    playlist.setCurIdx(0);
    const auto search = pick();
    EXPECT_EQ(search->step(), State::Searching);
    EXPECT_LT(movies.tried().size(), 200U);
    int steps = 1;
    while (search->step() == State::Searching)
        ++steps;
    EXPECT_LT(steps, 1000);
    EXPECT_EQ(movies.tried().size(), 1000U);
}

} // namespace kestro
