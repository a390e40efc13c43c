#include "engine/MovieSequencer.h"

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

namespace kestro {

namespace {

class MovieSequencerTest : public EngineTest, public TrailerClient {
protected:
    MovieSequencer makeSequencer(bool isPreview = false, bool playsWebContent = false)
    {
        return MovieSequencer(
            {settings, playlist, movies, random, isPreview, [playsWebContent] { return playsWebContent; }},
            [this](double seconds) {
                waits.push_back(seconds);
                if (onWait) onWait();
            },
            [this] { ++searches; });
    }

    /// The name of what was picked; empty for nothing.
    static QString nameOf(const MovieContent& content)
    {
        if (const auto* movie = std::get_if<std::shared_ptr<QTMovie>>(&content))
            return (*movie)->url().fileName();
        if (const auto* url = std::get_if<QUrl>(&content)) return url->fileName();
        return {};
    }
    static QString pick(MovieSequencer& sequencer, bool isFirst = false)
    {
        return nameOf(sequencer.newNextMovie(isFirst));
    }

    Settings settings{store, {}};
    Playlist playlist{settings, trailers, *this, false};
    std::vector<double> waits;
    std::function<void()> onWait;
    int searches = 0;
};

} // namespace

TEST_F(MovieSequencerTest, newNextMovie_playsInOrderAndWraps)
{
    setGoodPlaylist({"a.mov", "b.mov", "c.mov"});
    auto sequencer = makeSequencer();
    playlist.setCurIdx(0);
    EXPECT_EQ(pick(sequencer), "a.mov");
    EXPECT_EQ(playlist.curIdx(), 1);
    EXPECT_EQ(pick(sequencer), "b.mov");
    EXPECT_EQ(pick(sequencer), "c.mov");
    EXPECT_EQ(playlist.curIdx(), 0);
    EXPECT_EQ(pick(sequencer), "a.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_logsRecordsAndSkips_whatCannotBeOpened)
{
    setPlaylist({"bad.mov", "a.mov"});
    describe("a.mov");
    auto sequencer = makeSequencer();
    playlist.setCurIdx(0);
    EXPECT_EQ(pick(sequencer), "a.mov");
    EXPECT_EQ(logged("Failed to load movie:http://m/bad.mov"), 1);
    EXPECT_EQ(playlist.failedURLList(), QSet<QString>{"http://m/bad.mov"});
}

TEST_F(MovieSequencerTest, newNextMovie_skipsWebPagesWithoutARecord)
{
    setPlaylist({"page.Html", "a.mov"});
    describe("page.Html");
    describe("a.mov");
    auto sequencer = makeSequencer();
    playlist.setCurIdx(0);
    EXPECT_EQ(pick(sequencer), "a.mov");
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(playlist.failedURLList().isEmpty());
    EXPECT_EQ(movies.tried(), std::vector<QString>{"http://m/a.mov"});
}

TEST_F(MovieSequencerTest, newNextMovie_isNothingAfterAFullCircle_whenNothingOpens)
{
    setPlaylist({"x.mov", "y.mov", "z.mov"});
    auto sequencer = makeSequencer();
    playlist.setCurIdx(1);
    EXPECT_EQ(pick(sequencer), "");
    EXPECT_EQ(movies.tried(), (std::vector<QString>{"http://m/y.mov", "http://m/z.mov", "http://m/x.mov"}));
    EXPECT_EQ(playlist.curIdx(), 1);
}

TEST_F(MovieSequencerTest, newNextMovie_isNothing_forAnEmptyPlaylist)
{
    for (const char* order : {"0", "1"}) {
        set("RandomMode", order);
        auto sequencer = makeSequencer();
        EXPECT_EQ(pick(sequencer), "");
    }
}

TEST_F(MovieSequencerTest, newNextMovie_letsTheDesktopGoOnBetweenTriesAndStopsWhenTold)
{
    setPlaylist({"x.mov", "y.mov", "a.mov"});
    describe("a.mov");
    auto sequencer = makeSequencer();
    onWait = [&] { sequencer.stop(); };
    playlist.setCurIdx(0);
    EXPECT_EQ(pick(sequencer), "");
    EXPECT_EQ(movies.tried().size(), 1U);
    sequencer.resume();
    onWait = nullptr;
    EXPECT_EQ(pick(sequencer), "a.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_answersTheAddress_forWebContent)
{
    setPlaylist({"clip.swf"});
    auto sequencer = makeSequencer(false, true);
    playlist.setCurIdx(0);
    const auto content = sequencer.newNextMovie(true);
    ASSERT_TRUE(std::holds_alternative<QUrl>(content));
    EXPECT_EQ(std::get<QUrl>(content), urlOf("clip.swf"));
}

TEST_F(MovieSequencerTest, newNextMovie_countsWebContentAsFailed_withoutAWebEngine)
{
    setPlaylist({"clip.swf", "a.mov"});
    describe("clip.swf");
    describe("a.mov");
    auto sequencer = makeSequencer();
    playlist.setCurIdx(0);
    EXPECT_EQ(pick(sequencer), "a.mov");
    EXPECT_EQ(logged("Failed to load movie:http://m/clip.swf"), 1);
}

TEST_F(MovieSequencerTest, newNextMovie_drawsEveryEntryOnceACycle_inRandomOrder)
{
    set("RandomMode", "1");
    const QStringList names{"a.mov", "b.mov", "c.mov", "d.mov", "e.mov"};
    setGoodPlaylist(names);
    auto sequencer = makeSequencer();
    QSet<QString> seen;
    for (int i = 0; i < names.size(); ++i)
        seen.insert(pick(sequencer, true));
    EXPECT_EQ(seen, QSet<QString>(names.begin(), names.end()));
}

TEST_F(MovieSequencerTest, newNextMovie_pointsAtTheEntryThatPlays_inRandomOrder)
{
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov", "b.mov", "c.mov"});
    auto sequencer = makeSequencer();
    for (int i = 0; i < 9; ++i) {
        const QString name = pick(sequencer);
        EXPECT_EQ(playlist.fileList().at(playlist.curIdx()).fileName(), name);
    }
}

TEST_F(MovieSequencerTest, newNextMovie_refusesTheOnlyEntryOnceAndThenTakesIt_inRandomOrder)
{
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov"});
    auto sequencer = makeSequencer();
    EXPECT_EQ(pick(sequencer, true), "a.mov");
    EXPECT_EQ(movies.tried().size(), 1U);
    EXPECT_EQ(pick(sequencer), "a.mov");
    EXPECT_EQ(movies.tried().size(), 3U);
    EXPECT_TRUE(waits.empty());
    EXPECT_EQ(searches, 0);
}

TEST_F(MovieSequencerTest, newNextMovie_letsGoOfTheCopy_whenItRefusesARepeat)
{
    set("RandomMode", "1");
    set("Fadeout", "1");
    setGoodPlaylist({"a.mov"});
    auto sequencer = makeSequencer();
    EXPECT_EQ(pick(sequencer, true), "a.mov");
    const std::weak_ptr<StillMovie> first = sequencer.cacheMovie();
    EXPECT_EQ(pick(sequencer), "a.mov");
    EXPECT_TRUE(first.expired());
    EXPECT_TRUE(sequencer.cacheMovie());
}

TEST_F(MovieSequencerTest, newNextMovie_goesOnOneDrawASecond_whenAWholeRandomCycleFailed)
{
    set("RandomMode", "1");
    setPlaylist({"x.mov", "y.mov"});
    auto sequencer = makeSequencer();
    onWait = [&] {
        if (waits.size() == 5) sequencer.stop();
    };
    EXPECT_EQ(pick(sequencer), "");
    EXPECT_EQ(waits, (std::vector<double>{0, 0, 1, 1, 1}));
    EXPECT_EQ(searches, 2);
}

TEST_F(MovieSequencerTest, newNextMovie_takesWhatOpensLater_whenARandomCycleFailed)
{
    set("RandomMode", "1");
    setPlaylist({"x.mov", "y.mov"});
    auto sequencer = makeSequencer();
    onWait = [&] {
        if (waits.size() == 4) describe("y.mov");
    };
    EXPECT_EQ(pick(sequencer), "y.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_startsAtTheLastMovie_whenResumingInOrder)
{
    set("Continue", "1");
    setGoodPlaylist({"a.mov", "b.mov", "c.mov"});
    store.defaultsPlist()["LastMovie"] = "b.mov";
    auto sequencer = makeSequencer();
    playlist.setCurIdx(0);
    EXPECT_EQ(pick(sequencer, true), "b.mov");
    EXPECT_EQ(playlist.curIdx(), 2);
    EXPECT_EQ(pick(sequencer), "c.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_drawsTheLastMovieFirst_whenResumingInRandomOrder)
{
    set("Continue", "1");
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov", "b.mov", "c.mov", "d.mov", "e.mov", "f.mov", "g.mov"});
    store.defaultsPlist()["LastMovie"] = "e.mov";
    for (int i = 0; i < 5; ++i) {
        auto sequencer = makeSequencer();
        EXPECT_EQ(pick(sequencer, true), "e.mov");
        EXPECT_EQ(playlist.curIdx(), 4);
    }
}

TEST_F(MovieSequencerTest, newNextMovie_startsAtTheFirstPlayable_whenTheLastMovieIsGone)
{
    set("Continue", "1");
    setGoodPlaylist({"a.mov", "b.mov"});
    store.defaultsPlist()["LastMovie"] = "gone.mov";
    auto sequencer = makeSequencer();
    playlist.setCurIdx(1);
    EXPECT_EQ(pick(sequencer, true), "b.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_ignoresTheLastMovie_unlessFirstAndContinuing)
{
    setGoodPlaylist({"a.mov", "b.mov"});
    store.defaultsPlist()["LastMovie"] = "b.mov";
    auto sequencer = makeSequencer();
    playlist.setCurIdx(0);
    EXPECT_EQ(pick(sequencer, true), "a.mov");
    set("Continue", "1");
    playlist.setCurIdx(0);
    EXPECT_EQ(pick(sequencer, false), "a.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_resumesAtTheLastPosition)
{
    set("Continue", "1");
    setGoodPlaylist({"a.mov"}, 10);
    store.defaultsPlist()["LastPos"] = "1234";
    auto sequencer = makeSequencer();
    playlist.setCurIdx(0);
    const auto content = sequencer.newNextMovie(true);
    EXPECT_EQ(GetMovieTime(*std::get<std::shared_ptr<QTMovie>>(content)), 1234);
}

TEST_F(MovieSequencerTest, newNextMovie_playsFromTheStart_whenThePositionIsPastTheEnd)
{
    set("Continue", "1");
    setGoodPlaylist({"a.mov"}, 10);
    for (const auto& [stored, expected] : std::vector<std::pair<QString, int>>{{"6001", 0}, {"6000", 6000}}) {
        store.defaultsPlist()["LastPos"] = stored;
        auto sequencer = makeSequencer();
        playlist.setCurIdx(0);
        const auto content = sequencer.newNextMovie(true);
        EXPECT_EQ(GetMovieTime(*std::get<std::shared_ptr<QTMovie>>(content)), expected);
    }
}

TEST_F(MovieSequencerTest, newNextMovie_keepsACopyForStills_onlyWhereMoviesFade)
{
    setGoodPlaylist({"a.mov"});
    const auto copyWith = [&](const char* fade, bool isPreview) {
        set("Fadeout", fade);
        auto sequencer = makeSequencer(isPreview);
        playlist.setCurIdx(0);
        EXPECT_EQ(pick(sequencer), "a.mov");
        return sequencer.cacheMovie();
    };
    EXPECT_FALSE(copyWith("0", false));
    EXPECT_FALSE(copyWith("1", true));
    const auto copy = copyWith("1", false);
    ASSERT_TRUE(copy);
    EXPECT_FALSE(copy->still({0, 600}).isNull());
}

TEST_F(MovieSequencerTest, newNextMovie_buildsTheListAnew_afterItWrapsWithTrailers)
{
    trailers.trailers = {urlOf("t1.mov")};
    describe("t1.mov");
    describe("t2.mov");
    for (const char* order : {"0", "1"}) {
        set("RandomMode", order);
        set("FileList", QVariantList{"auto://LatestTrailers/6/480"});
        trailers.trailers = {urlOf("t1.mov")};
        playlist.dropFileList();
        playlist.setCurIdx(0);
        auto sequencer = makeSequencer();
        EXPECT_EQ(pick(sequencer, true), "t1.mov");
        trailers.trailers = {urlOf("t2.mov")};
        EXPECT_EQ(pick(sequencer), "t2.mov");
    }
    EXPECT_EQ(trailers.scans, 1);
}

TEST_F(MovieSequencerTest, newNextMovie_keepsTheList_whenItWrapsWithoutTrailers)
{
    setGoodPlaylist({"a.mov"});
    describe("b.mov");
    playlist.setCurIdx(0);
    auto sequencer = makeSequencer();
    EXPECT_EQ(pick(sequencer), "a.mov");
    setPlaylist({"b.mov"});
    EXPECT_EQ(pick(sequencer), "a.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_beginsAtTheTop_whenTheListGotShorter)
{
    setGoodPlaylist({"a.mov"});
    playlist.setCurIdx(5);
    auto sequencer = makeSequencer();
    EXPECT_EQ(pick(sequencer), "a.mov");
    EXPECT_EQ(playlist.curIdx(), 0);
}

} // namespace kestro
