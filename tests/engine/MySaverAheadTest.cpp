// What plays is told to who fetches movies ahead.

#include "engine/AheadFetch.h"
#include "engine/EngineTest.h"

namespace kestro {

namespace {

class AheadDouble final : public AheadFetch {
public:
    void plays(const QUrl& movie, Playlist& playlist) override
    {
        played.append(movie);
        lists.append(playlist.fileList());
    }

    QList<QUrl> played;
    QList<QList<QUrl>> lists;
};

class MySaverAheadTest : public EngineTest {
protected:
    MySaverAheadTest()
    {
        setGoodPlaylist({QStringLiteral("a"), QStringLiteral("b")});
        SaverServices shared = services();
        shared.ahead = &ahead;
        saver = std::make_unique<MySaver>(Rect{{0, 0}, {640, 480}}, false, shared);
    }

    AheadDouble ahead;
    std::unique_ptr<MySaver> saver;
};

} // namespace

TEST_F(MySaverAheadTest, eachMovieThatPlays_isTold)
{
    saver->startAnimation();
    const QList<QUrl> list{urlOf(QStringLiteral("a")), urlOf(QStringLiteral("b"))};
    EXPECT_EQ(ahead.played, list.first(1));
    EXPECT_EQ(ahead.lists.value(0), list);
    tickFor(*saver, 10.1);
    EXPECT_EQ(ahead.played, list);
    saver->stopAnimation();
}

} // namespace kestro
