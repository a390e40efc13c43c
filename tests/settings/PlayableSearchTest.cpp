#include "settings/PlayableSearch.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace kestro {

namespace {

class PlayableSearchTest : public testing::Test {
protected:
    QUrl file(const QString& name) { return QUrl::fromLocalFile(folder.filePath(name)); }
    QUrl installed(const QString& name)
    {
        QFile made(folder.filePath(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        return file(name);
    }
    /// The search at its end.
    static std::unique_ptr<PlayableSearch> searched(const QList<QUrl>& list)
    {
        QEventLoop loop;
        auto search = std::make_unique<PlayableSearch>(list, [&loop] { loop.quit(); });
        for (search->step(); !search->isOver(); search->step()) {
            EXPECT_FALSE(search->isMovieExists());
            loop.exec();
        }
        return search;
    }

    int argc = 1;
    std::string program = "test";
    std::array<char*, 2> argv{program.data(), nullptr};
    QCoreApplication application{argc, argv.data()}; // looks are told of by its event loop
    QTemporaryDir folder;
    const QUrl remote{QStringLiteral("http://example.com/a.mov")};
};

} // namespace

TEST_F(PlayableSearchTest, finds_theFirstPlayableEntry)
{
    const QUrl there = installed("a b.mov");
    const QUrl missing = file("no such.mov");
    const QUrl automatic(QStringLiteral("auto://LatestTrailers/6/480"));
    QUrl onThisMachine = there;
    onThisMachine.setHost(QStringLiteral("localhost"));
    QUrl onAnother = there;
    onAnother.setHost(QStringLiteral("server"));
    struct Case {
        QList<QUrl> list;
        int expected;
    };
    for (const Case& c :
         {Case{{there}, 0}, Case{{missing, there}, 1}, Case{{missing, missing, remote}, 2},
          Case{{remote, there}, 0}, Case{{QUrl(QStringLiteral("file:")), remote}, 1},
          Case{{missing, onThisMachine}, 1}, Case{{onAnother, remote}, 1}, Case{{missing, automatic}, 1}}) {
        const auto search = searched(c.list);
        EXPECT_TRUE(search->isMovieExists());
        EXPECT_EQ(search->index(), c.expected);
    }
}

TEST_F(PlayableSearchTest, findsNothing_whereNoFileIsThere)
{
    for (const QList<QUrl>& list : {QList<QUrl>{}, QList<QUrl>{file("x.mov"), file("y.mov")}}) {
        const auto search = searched(list);
        EXPECT_FALSE(search->isMovieExists());
        EXPECT_EQ(search->index(), -1);
    }
}

TEST_F(PlayableSearchTest, step_findsWhatIsNoFileAtOnce)
{
    PlayableSearch search({remote}, [] { ADD_FAILURE() << "woken for nothing"; });
    search.step();
    EXPECT_TRUE(search.isOver());
    QCoreApplication::processEvents();
}

TEST_F(PlayableSearchTest, isGivenUp_whenDestroyed)
{
    auto search =
        std::make_unique<PlayableSearch>(QList<QUrl>{installed("a.mov")}, [] { ADD_FAILURE() << "woken"; });
    search->step();
    search.reset();
    // The answer to another look comes after that of the first.
    EXPECT_TRUE(searched({installed("b.mov")})->isMovieExists());
}

} // namespace kestro
