#include "engine/MovieSequencer.h"

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

namespace kestro {

namespace {

class MovieSequencerTest : public EngineTest {
protected:
    MovieSequencer makeSequencer(bool isPreview = false, bool playsWebContent = false)
    {
        return MovieSequencer({settings, playlist, movies, random, clock, isPreview,
                               [playsWebContent] { return playsWebContent; }});
    }

    /// The name of what was picked; empty for nothing.
    static QString nameOf(const MovieContent& content)
    {
        if (const auto* movie = std::get_if<std::shared_ptr<QTMovie>>(&content))
            return (*movie)->url().fileName();
        if (const auto* url = std::get_if<QUrl>(&content)) return url->fileName();
        return {};
    }
    MovieContent content(MovieSequencer& sequencer, bool isFirst = false,
                         const std::optional<QString>& resumed = {})
    {
        const auto played = isFirst ? std::nullopt : std::optional(playlist.curIdx());
        const auto pick = sequencer.newNextMovie(played, resumed, {});
        EXPECT_NE(pick->step(), MoviePick::State::Searching);
        return pick->takeContent();
    }
    QString pick(MovieSequencer& sequencer, bool isFirst = false, const std::optional<QString>& resumed = {})
    {
        return nameOf(content(sequencer, isFirst, resumed));
    }

    Settings settings{store, {}};
    Playlist playlist{settings, trailers, false};
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

TEST_F(MovieSequencerTest, newNextMovie_answersTheAddress_forWebContent)
{
    setPlaylist({"clip.swf"});
    auto sequencer = makeSequencer(false, true);
    playlist.setCurIdx(0);
    const auto shown = content(sequencer, true);
    ASSERT_TRUE(std::holds_alternative<QUrl>(shown));
    EXPECT_EQ(std::get<QUrl>(shown), urlOf("clip.swf"));
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
}

TEST_F(MovieSequencerTest, newNextMovie_letsGoOfTheCopy_whenItRefusesARepeat)
{
    set("RandomMode", "1");
    set("Fadeout", "1");
    set("FullScreenMode", "0");
    setGoodPlaylist({"a.mov"});
    auto sequencer = makeSequencer();
    EXPECT_EQ(pick(sequencer, true), "a.mov");
    const std::weak_ptr<StillMovie> first = sequencer.cacheMovie();
    EXPECT_EQ(pick(sequencer), "a.mov");
    EXPECT_TRUE(first.expired());
    EXPECT_TRUE(sequencer.cacheMovie());
}

TEST_F(MovieSequencerTest, newNextMovie_startsAtTheLastMovie_whenResumingInOrder)
{
    setGoodPlaylist({"a.mov", "b.mov", "c.mov"});
    auto sequencer = makeSequencer();
    playlist.setCurIdx(0);
    EXPECT_EQ(pick(sequencer, true, "b.mov"), "b.mov");
    EXPECT_EQ(playlist.curIdx(), 2);
    EXPECT_EQ(pick(sequencer), "c.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_drawsTheLastMovieFirst_whenResumingInRandomOrder)
{
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov", "b.mov", "c.mov", "d.mov", "e.mov", "f.mov", "g.mov"});
    for (int i = 0; i < 5; ++i) {
        auto sequencer = makeSequencer();
        EXPECT_EQ(pick(sequencer, true, "e.mov"), "e.mov");
        EXPECT_EQ(playlist.curIdx(), 4);
    }
}

TEST_F(MovieSequencerTest, newNextMovie_startsAtTheFirstPlayable_whenTheLastMovieIsGone)
{
    setGoodPlaylist({"a.mov", "b.mov"});
    auto sequencer = makeSequencer();
    playlist.setCurIdx(1);
    EXPECT_EQ(pick(sequencer, true, "gone.mov"), "b.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_keepsACopyForStills_onlyWhereMoviesLeavePictures)
{
    setGoodPlaylist({"a.mov"});
    const auto copyWith = [&](const char* fade, const char* fullScreen, bool isPreview) {
        set("Fadeout", fade);
        set("FullScreenMode", fullScreen);
        auto sequencer = makeSequencer(isPreview);
        playlist.setCurIdx(0);
        EXPECT_EQ(pick(sequencer), "a.mov");
        return sequencer.cacheMovie();
    };
    EXPECT_FALSE(copyWith("0", "0", false));
    EXPECT_FALSE(copyWith("1", "1", false));
    EXPECT_FALSE(copyWith("1", "0", true));
    const auto copy = copyWith("1", "0", false);
    ASSERT_TRUE(copy);
    EXPECT_FALSE(copy->still({0, 600}).isNull());
    EXPECT_EQ(movies.tried().size(), 4U);
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

TEST_F(MovieSequencerTest, newNextMovie_isNothing_onceAWholeRandomCycleFailed)
{
    set("RandomMode", "1");
    setPlaylist({"x.mov", "y.mov"});
    auto sequencer = makeSequencer();
    EXPECT_EQ(pick(sequencer), "");
    EXPECT_EQ(movies.tried().size(), 2U);
    describe("y.mov");
    sequencer.entries().beginRetry();
    EXPECT_EQ(pick(sequencer), "y.mov");
}

TEST_F(MovieSequencerTest, newNextMovie_fillsTheBagAgain_beforeARandomPickFindsNothing)
{
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov", "b.mov"});
    auto sequencer = makeSequencer();
    const QString first = pick(sequencer, true);
    const QString other = first == "a.mov" ? "b.mov" : "a.mov";
    describe(other, {.opens = false});
    EXPECT_EQ(pick(sequencer), first);
}

} // namespace kestro
