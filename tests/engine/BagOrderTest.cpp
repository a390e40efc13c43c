#include "engine/BagOrder.h"

#include "engine/EngineTest.h"

#include <algorithm>
#include <map>

namespace kestro {

namespace {

class BagOrderTest : public EngineTest {
protected:
    void useMovies(int count)
    {
        QStringList names;
        for (int number = 0; number < count; ++number)
            names.append(QStringLiteral("%1.mov").arg(number));
        setPlaylist(names);
        playlist.dropFileList();
    }
    /// One pick of a run: the number of the movie that it takes, past those that cannot be opened.
    int pick(ShuffleRecord& record, std::optional<int> played = {},
             const std::optional<QString>& resumed = {})
    {
        BagOrder order(playlist, random, record, resumed, played);
        while (const auto entry = order.next()) {
            if (broken.contains(*entry))
                order.pass();
            else if (order.take())
                return playlist.curIdx();
        }
        return -1;
    }
    std::vector<int> picks(ShuffleRecord& record, int count)
    {
        std::vector<int> found;
        for (int i = 0; i < count; ++i)
            found.push_back(pick(record, found.empty() ? std::nullopt : std::optional(found.back())));
        return found;
    }
    static std::vector<int> sorted(std::vector<int> numbers)
    {
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    }
    static std::vector<int> allOf(int count)
    {
        std::vector<int> all;
        for (int number = 0; number < count; ++number)
            all.push_back(number);
        return all;
    }

    QTemporaryDir folder;
    QString path = folder.filePath("shuffle");
    void star(int number)
    {
        mark("star", {QStringLiteral("%1.mov").arg(number)});
        playlist.dropFileList();
    }

    Settings settings{store, {}};
    Playlist playlist{settings, trailers, false, nullptr, &marks};
    QSet<QUrl> broken;
};

} // namespace

TEST_F(BagOrderTest, noMovie_comesTwice_beforeAllWereSeen)
{
    useMovies(20);
    ShuffleRecord record(path);
    for (int cycle = 0; cycle < 5; ++cycle)
        EXPECT_EQ(sorted(picks(record, 20)), allOf(20)) << cycle;
}

TEST_F(BagOrderTest, noMovie_comesTwice_inSeveralRuns)
{
    useMovies(20);
    std::vector<int> seen;
    for (int run = 0; run < 10; ++run) {
        ShuffleRecord record(path);
        const auto found = picks(record, 2);
        seen.insert(seen.end(), found.begin(), found.end());
    }
    EXPECT_EQ(sorted(seen), allOf(20));
}

TEST_F(BagOrderTest, noMovie_comesTwice_onSeveralMonitors)
{
    useMovies(20);
    ShuffleRecord left(path);
    ShuffleRecord right(path);
    std::vector<int> seen;
    for (int turn = 0; turn < 10; ++turn) {
        seen.push_back(pick(left));
        seen.push_back(pick(right));
    }
    EXPECT_EQ(sorted(seen), allOf(20));
}

// Another process takes it between the draw and the claim.
TEST_F(BagOrderTest, movieThatSomebodyElseTookMeanwhile_isNotTaken)
{
    useMovies(3);
    ShuffleRecord record(path);
    BagOrder order(playlist, random, record, {}, {});
    const QUrl drawn = order.next().value_or(QUrl());
    ShuffleRecord(path).change(
        [&](auto& contents) { return contents.seen.insert(ShuffleRecord::markOf(drawn)).second; });
    EXPECT_FALSE(order.take());
    EXPECT_NE(order.next(), drawn);
    EXPECT_TRUE(order.take());
}

TEST_F(BagOrderTest, newCycle_doesNotBeginWithTheMovieThatPlayedLast)
{
    useMovies(2);
    ShuffleRecord record(path);
    const auto found = picks(record, 40);
    EXPECT_EQ(std::adjacent_find(found.begin(), found.end()), found.end());
}

TEST_F(BagOrderTest, movieThatIsAlone_comesAgainAndAgain)
{
    useMovies(1);
    ShuffleRecord record(path);
    EXPECT_EQ(picks(record, 3), (std::vector<int>{0, 0, 0}));
}

TEST_F(BagOrderTest, movieThatComes_isUnseen)
{
    useMovies(5);
    ShuffleRecord record(path);
    picks(record, 4);
    useMovies(6);
    EXPECT_EQ(picks(record, 2).size(), 2U);
    EXPECT_EQ(record.contents().seen.size(), 6U);
}

TEST_F(BagOrderTest, resumedMovie_comesFirst_thoughItWasSeen)
{
    useMovies(5);
    ShuffleRecord record(path);
    picks(record, 5);
    EXPECT_EQ(pick(record, {}, QStringLiteral("3.mov")), 3);
    EXPECT_EQ(record.contents().seen.size(), 5U);
    EXPECT_GE(pick(record, {}, QStringLiteral("missing.mov")), 0);
}

TEST_F(BagOrderTest, pick_findsNothing_whereNothingOpens)
{
    useMovies(4);
    for (int number = 0; number < 4; ++number)
        broken.insert(urlOf(QStringLiteral("%1.mov").arg(number)));
    ShuffleRecord record(path);
    EXPECT_EQ(pick(record), -1);
    EXPECT_EQ(record.contents().failures.size(), 4U);
    EXPECT_TRUE(record.contents().seen.empty());
}

TEST_F(BagOrderTest, whatCannotBeOpened_isTriedOnceACycle)
{
    useMovies(10);
    broken.insert(urlOf(QStringLiteral("4.mov")));
    ShuffleRecord record(path);
    auto expected = allOf(10);
    expected.erase(expected.begin() + 4);
    EXPECT_EQ(sorted(picks(record, 9)), expected);
    EXPECT_EQ(sorted(picks(record, 9)), expected);
}

TEST_F(BagOrderTest, whatFailedThreeRunsInARow_comesLast)
{
    useMovies(10);
    for (int run = 0; run < 3; ++run) {
        ShuffleRecord record(path);
        record.addFailure(ShuffleRecord::markOf(urlOf(QStringLiteral("4.mov"))));
        record.keepFailures();
    }
    for (int cycle = 0; cycle < 4; ++cycle) {
        ShuffleRecord record(path);
        const auto all = picks(record, 10);
        EXPECT_EQ(all.back(), 4) << cycle;
        record.change([](auto& contents) {
            contents.failures[ShuffleRecord::markOf(urlOf(QStringLiteral("4.mov")))] = 3;
            return true;
        });
    }
}

TEST_F(BagOrderTest, whatPlaysAgain_isHopelessNoMore)
{
    useMovies(2);
    const auto mark = ShuffleRecord::markOf(urlOf(QStringLiteral("1.mov")));
    ShuffleRecord record(path);
    record.change([mark](auto& contents) { return contents.failures.emplace(mark, 3).second; });
    ASSERT_TRUE(record.isHopeless(mark));
    picks(record, 2);
    EXPECT_FALSE(record.isHopeless(mark));
}

// A week of five-minute movies, twelve of them, in runs of an hour: which one stands at which place of a
// cycle is even. 11 * 11 degrees of freedom: chi-squared is above 182 once in 5,000 times.
TEST_F(BagOrderTest, aWeekOfShuffles_isEven)
{
    constexpr int movieCount = 12;
    constexpr int runs = 7 * 24;
    useMovies(movieCount);
    std::map<std::pair<int, int>, int> counts;
    for (int run = 0; run < runs; ++run) {
        ShuffleRecord record(path);
        const auto found = picks(record, movieCount);
        ASSERT_EQ(sorted(found), allOf(movieCount)) << run;
        for (int place = 0; place < movieCount; ++place)
            ++counts[{place, found[std::size_t(place)]}];
    }
    const double expected = double(runs) / movieCount;
    double chiSquared = 0;
    for (int place = 0; place < movieCount; ++place)
        for (int number = 0; number < movieCount; ++number) {
            const double difference = counts[{place, number}] - expected;
            chiSquared += difference * difference / expected;
        }
    EXPECT_LT(chiSquared, 182);
    EXPECT_GT(chiSquared, 60) << "too even to be drawn";
}

TEST_F(BagOrderTest, starredMovie_comesTwice_beforeAllWereSeen)
{
    useMovies(6);
    star(2);
    ShuffleRecord record(path);
    const auto first = picks(record, 7);
    EXPECT_EQ(sorted(first), (std::vector<int>{0, 1, 2, 2, 3, 4, 5}));
}

TEST_F(BagOrderTest, starredMovie_comesTwice_inSeveralRuns)
{
    useMovies(6);
    star(2);
    std::vector<int> seen;
    for (int run = 0; run < 7; ++run) {
        ShuffleRecord record(path);
        seen.push_back(pick(record, seen.empty() ? std::nullopt : std::optional(seen.back())));
    }
    EXPECT_EQ(sorted(seen), (std::vector<int>{0, 1, 2, 2, 3, 4, 5}));
}

TEST_F(BagOrderTest, starredMovie_neverComesTwiceInARow_andTwiceAsOften)
{
    useMovies(6);
    star(2);
    ShuffleRecord record(path);
    const auto found = picks(record, 700);
    EXPECT_EQ(std::adjacent_find(found.begin(), found.end()), found.end());
    std::map<int, int> counts;
    for (const int number : found)
        ++counts[number];
    for (const int other : {0, 1, 3, 4, 5}) {
        EXPECT_NEAR(counts[other], counts[0], 1);
        EXPECT_GT(counts[2], counts[other] * 1.8);
        EXPECT_LE(counts[2], counts[other] * 2 + 2);
    }
}

TEST_F(BagOrderTest, starredMovieThatIsAlone_comesAgainAndAgain)
{
    useMovies(1);
    star(0);
    ShuffleRecord record(path);
    EXPECT_EQ(picks(record, 5), (std::vector<int>{0, 0, 0, 0, 0}));
}

TEST_F(BagOrderTest, starredMovieThatCannotBeOpened_isTriedOnceACycle)
{
    useMovies(4);
    star(1);
    broken.insert(urlOf(QStringLiteral("1.mov")));
    ShuffleRecord record(path);
    EXPECT_EQ(sorted(picks(record, 3)), (std::vector<int>{0, 2, 3}));
    EXPECT_EQ(sorted(picks(record, 3)), (std::vector<int>{0, 2, 3}));
}

TEST_F(BagOrderTest, star_countsForNothing_inRandomOrderThatForgets)
{
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov", "b.mov", "c.mov"}, 2);
    mark("star", {"b.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    tick(saver, 2);
    QStringList played{playing(saver)};
    while (played.size() < 9) {
        tickFor(saver, 2.15);
        played.append(playing(saver));
    }
    for (const char* name : {"a.mov", "b.mov", "c.mov"})
        EXPECT_EQ(played.count(QString::fromLatin1(name)), 3) << played.join(u' ').toStdString();
}

TEST_F(BagOrderTest, saver_remembersWhatItPlayed_inRandomOrder)
{
    set("RandomMode", "1");
    setGoodPlaylist({"a.mov", "b.mov", "c.mov"}, 2);
    QSet<QString> played;
    for (int run = 0; run < 3; ++run) {
        ShuffleRecord record(path);
        shuffle = &record;
        auto& saver = makeSaver();
        saver.startAnimation();
        tick(saver, 2);
        played.insert(playing(saver));
        saver.stopAnimation();
    }
    EXPECT_EQ(played.size(), 3);
}

TEST_F(BagOrderTest, preview_andListOrder_rememberNothing)
{
    setGoodPlaylist({"a.mov", "b.mov"}, 2);
    ShuffleRecord record(path);
    shuffle = &record;
    auto& inOrder = makeSaver();
    inOrder.startAnimation();
    tick(inOrder, 2);
    set("RandomMode", "1");
    auto& preview = makeSaver(true);
    preview.startAnimation();
    tick(preview, 2);
    EXPECT_FALSE(playing(preview).isEmpty());
    EXPECT_EQ(record.contents(), ShuffleRecord::Contents());
}

} // namespace kestro
