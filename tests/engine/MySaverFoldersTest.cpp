// Folders among the entries: what they hold is played, and what comes into them joins.

#include "engine/EngineTest.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <QFile>
#include <QSet>

#include <algorithm>

namespace kestro {

namespace {

class MySaverFoldersTest : public EngineTest {
protected:
    MySaverFoldersTest() { setPlaylist({QStringLiteral("folder://") + films.path()}); }

    /// Makes a movie of that name, ten seconds long.
    void make(const QString& name, double seconds = 10)
    {
        EXPECT_TRUE(QFile(films.filePath(name)).open(QIODevice::WriteOnly));
        movies.describe(QUrl::fromLocalFile(films.filePath(name)).toString(), {.seconds = seconds});
    }
    void fill(const QStringList& names, bool isWhole = true) { folders.fill(films.path(), names, isWhole); }
    bool plays(MySaver& saver, const QString& name)
    {
        return waitUntil([&] {
            if (playing(saver) == name) return true;
            tick(saver);
            return false;
        });
    }
    void endMovie(MySaver& saver) { tickFor(saver, 10.1); }

    QTemporaryDir films;
};

} // namespace

TEST_F(MySaverFoldersTest, movies_playInTheirOrder)
{
    for (const char* name : {"a.mov", "b.mov"})
        make(name);
    fill({"a.mov", "b.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    ASSERT_TRUE(plays(saver, "a.mov"));
    endMovie(saver);
    ASSERT_TRUE(plays(saver, "b.mov"));
    endMovie(saver);
    EXPECT_TRUE(plays(saver, "a.mov"));
}

TEST_F(MySaverFoldersTest, start_waitsForTheFolder_withoutASign)
{
    make("a.mov");
    auto& saver = makeSaver();
    saver.startAnimation();
    tick(saver, 5);
    EXPECT_FALSE(saver.snapshot().sign.has_value());
    fill({"a.mov"});
    EXPECT_TRUE(plays(saver, "a.mov"));
    EXPECT_FALSE(saver.snapshot().sign.has_value());
}

TEST_F(MySaverFoldersTest, start_doesNotWaitForEver)
{
    setPlaylist({QStringLiteral("folder://") + films.path(), "m.mov"});
    describe("m.mov");
    auto& saver = makeSaver();
    saver.startAnimation();
    tickFor(saver, 1.9);
    EXPECT_EQ(playing(saver), QString());
    tickFor(saver, 0.3);
    EXPECT_EQ(playing(saver), QStringLiteral("m.mov"));
}

TEST_F(MySaverFoldersTest, movieThatComes_playsNext)
{
    for (const char* name : {"a.mov", "b.mov", "c.mov"})
        make(name);
    fill({"a.mov", "c.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    ASSERT_TRUE(plays(saver, "a.mov"));
    fill({"a.mov", "b.mov", "c.mov"});
    endMovie(saver);
    EXPECT_TRUE(plays(saver, "b.mov"));
}

TEST_F(MySaverFoldersTest, movieThatComes_endsTheLoopOfTheOneThatWasAlone)
{
    for (const char* name : {"a.mov", "b.mov"})
        make(name);
    fill({"a.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    ASSERT_TRUE(plays(saver, "a.mov"));
    tickFor(saver, 35);
    EXPECT_EQ(playing(saver), QStringLiteral("a.mov"));
    fill({"a.mov", "b.mov"});
    endMovie(saver);
    EXPECT_TRUE(plays(saver, "b.mov"));
}

TEST_F(MySaverFoldersTest, movieThatComesIntoAnEmptyFolder_playsAtOnce)
{
    fill({});
    auto& saver = makeSaver();
    saver.startAnimation();
    tick(saver);
    EXPECT_TRUE(saver.snapshot().sign.has_value());
    make("a.mov");
    fill({"a.mov"});
    tick(saver);
    EXPECT_TRUE(plays(saver, "a.mov"));
}

TEST_F(MySaverFoldersTest, moviesThatCome_joinTheCycle_inRandomOrder)
{
    set("RandomMode", "1");
    QStringList names;
    for (int number = 0; number < 6; ++number) {
        names.append(QStringLiteral("%1.mov").arg(number));
        make(names.back());
    }
    fill(names.first(3), false);
    auto& saver = makeSaver();
    saver.startAnimation();
    ASSERT_TRUE(waitUntil([&] {
        tick(saver);
        return !playing(saver).isEmpty();
    }));
    QSet<QString> played{playing(saver)};
    fill(names);
    for (int more = 0; more < 5; ++more) {
        endMovie(saver);
        ASSERT_TRUE(waitUntil([&] {
            tick(saver);
            return !playing(saver).isEmpty() && !played.contains(playing(saver));
        })) << more;
        played.insert(playing(saver));
    }
    EXPECT_EQ(played.size(), 6);
}

TEST_F(MySaverFoldersTest, whatCannotBePlayed_isPassedOverQuietly)
{
    make("b.mov");
    EXPECT_TRUE(QFile(films.filePath("a.mov")).open(QIODevice::WriteOnly));
    fill({"a.mov", "b.mov"});
    auto& saver = makeSaver();
    saver.startAnimation();
    ASSERT_TRUE(plays(saver, "b.mov"));
    EXPECT_TRUE(std::none_of(log.begin(), log.end(),
                             [](const QString& line) { return line.startsWith("Failed to load"); }));
}

} // namespace kestro
