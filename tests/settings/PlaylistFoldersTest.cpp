#include "settings/PlaylistFolders.h"

#include "settings/FoldersDouble.h"
#include "settings/PlaylistFixture.h"

namespace kestro {

namespace {

const QString videos = QStringLiteral("/home/ada/Videos");
const QString videosEntry = QStringLiteral("folder:///home/ada/Videos");
const QString remote = QStringLiteral("http://example.com/a.mov");

class PlaylistFoldersTest : public PlaylistFixture {
protected:
    void usePlaylist(const QStringList& stored, const QVariantMap& options = {})
    {
        QVariantMap plist = options;
        plist.insert(QStringLiteral("FileList"), stored);
        plist.insert(QStringLiteral("Ver"), QStringLiteral("5"));
        m_settings = std::make_unique<SettingsInMemory>(plist, Settings::ViewKind{});
        m_playlist = std::make_unique<Playlist>(m_settings->settings(), m_trailers, false, &m_folders);
    }
    [[nodiscard]] QStringList list() { return texts(playlist().fileList()); }
    [[nodiscard]] QString entryAtCurIdx() { return list().value(playlist().curIdx()).section(u'/', -1); }

    static QStringList files(const QStringList& names)
    {
        QStringList found;
        for (const QString& name : names)
            found.append(QStringLiteral("file://") + videos + u'/' + name);
        return found;
    }

    FoldersDouble m_folders;
};

} // namespace

TEST_F(PlaylistFoldersTest, folder_becomesItsMovies_inItsPlace)
{
    m_folders.fill(videos, {"a.mov", "b.mov"});
    usePlaylist({remote, videosEntry, remote});
    EXPECT_EQ(list(), QStringList(remote) + files({"a.mov", "b.mov"}) + QStringList(remote));
    EXPECT_EQ(texts(playlist().plistFileList()), (QStringList{remote, videosEntry, remote}));
    EXPECT_EQ(playlist().movieFileStrings(false), (QStringList{remote, videosEntry, remote}));
}

TEST_F(PlaylistFoldersTest, playlistFile_becomesItsMovies_inItsPlace)
{
    m_folders.fill(QStringLiteral("/films.m3u"), {"a.mov", "b.mov"});
    usePlaylist(
        {remote, QStringLiteral("file:///films.m3u"), QStringLiteral("http://example.com/live.m3u8")});
    EXPECT_EQ(list(), (QStringList{remote, "file:///films.m3u/a.mov", "file:///films.m3u/b.mov",
                                   "http://example.com/live.m3u8"}));
    EXPECT_EQ(m_folders.followed.size(), 1U);
    EXPECT_EQ(playlist().plistFileList().size(), 3);
    EXPECT_TRUE(playlist().folders().holds(QUrl(QStringLiteral("file:///films.m3u/b.mov"))));
    EXPECT_FALSE(playlist().folders().holds(QUrl(QStringLiteral("file:///films.m3u/c.mov"))));
}

TEST_F(PlaylistFoldersTest, folder_isFollowedFromTheStart_onceForEachWayToLookAtIt)
{
    usePlaylist({videosEntry, videosEntry, videosEntry + QStringLiteral("?recursive=1"), remote});
    EXPECT_EQ(m_folders.followed, (std::vector<FolderEntry>{{videos, false}, {videos, true}}));
    EXPECT_TRUE(playlist().folders().isWaiting());
    m_folders.fill(videos, {});
    EXPECT_FALSE(playlist().folders().isWaiting());
}

TEST_F(PlaylistFoldersTest, folder_holdsNothing_whereNobodyFollowsFolders)
{
    useList("5", QStringList{videosEntry, remote});
    EXPECT_EQ(list(), QStringList(remote));
    EXPECT_FALSE(playlist().folders().isWaiting());
}

TEST_F(PlaylistFoldersTest, entryThatNamesNoFolder_isDropped)
{
    usePlaylist({QStringLiteral("folder://server/a"), remote});
    EXPECT_EQ(list(), QStringList(remote));
    EXPECT_FALSE(playlist().folders().isWaiting());
    EXPECT_TRUE(m_folders.followed.empty());
}

TEST_F(PlaylistFoldersTest, pathOfAnOlderRelease_isNoFolder)
{
    const QVariantMap plist{{QStringLiteral("FileList"), QStringList(videosEntry)},
                            {QStringLiteral("Ver"), QStringLiteral("4")}};
    m_settings = std::make_unique<SettingsInMemory>(plist, Settings::ViewKind{});
    m_playlist = std::make_unique<Playlist>(m_settings->settings(), m_trailers, false, &m_folders);
    EXPECT_TRUE(m_folders.followed.empty());
}

TEST_F(PlaylistFoldersTest, wholeFolder_isWantedAtOnce_whereRunsContinue)
{
    usePlaylist({videosEntry});
    EXPECT_FALSE(m_folders.wasHurried);
    usePlaylist({videosEntry}, {{QStringLiteral("Continue"), QStringLiteral("1")}});
    EXPECT_TRUE(m_folders.wasHurried);
}

TEST_F(PlaylistFoldersTest, news_areToldAndTaken)
{
    m_folders.fill(videos, {"a.mov"});
    usePlaylist({videosEntry});
    int told = 0;
    playlist().folders().setWhenNews([&told] { ++told; });
    EXPECT_EQ(list(), files({"a.mov"}));
    EXPECT_FALSE(playlist().takeNews().has_value());

    m_folders.fill(videos, {"a.mov", "b.mov"});
    EXPECT_EQ(told, 1);
    EXPECT_EQ(list(), files({"a.mov"}));
    EXPECT_EQ(texts(playlist().takeNews().value_or(QList<QUrl>())), files({"a.mov"}));
    EXPECT_EQ(list(), files({"a.mov", "b.mov"}));
    EXPECT_FALSE(playlist().takeNews().has_value());
}

TEST_F(PlaylistFoldersTest, place_staysBehindTheMovieThatPlays_inSequentialOrder)
{
    struct Case {
        int curIdx; ///< in b, d, f
        QStringList now;
        const char* next;
    };
    const QStringList all{"a.mov", "b.mov", "c.mov", "d.mov", "e.mov", "f.mov", "g.mov"};
    for (const Case& c :
         {Case{1, all, "c.mov"}, Case{0, all, "g.mov"}, Case{2, all, "e.mov"},
          Case{1, {"d.mov", "f.mov"}, "d.mov"}, Case{2, {"b.mov", "f.mov"}, "f.mov"},
          Case{0, {"b.mov", "d.mov"}, "b.mov"}, Case{2, {"b.mov"}, "b.mov"}, Case{2, {}, ""}}) {
        m_folders.fill(videos, {"b.mov", "d.mov", "f.mov"});
        usePlaylist({videosEntry});
        ASSERT_EQ(list().size(), 3);
        playlist().setCurIdx(c.curIdx);
        m_folders.fill(videos, c.now);
        ASSERT_TRUE(playlist().takeNews().has_value());
        EXPECT_EQ(entryAtCurIdx(), QLatin1String(c.next)) << c.curIdx << " of " << c.now.size();
    }
}

TEST_F(PlaylistFoldersTest, place_staysAtTheMovieThatPlays_inRandomOrder)
{
    m_folders.fill(videos, {"b.mov", "d.mov"});
    usePlaylist({videosEntry}, {{QStringLiteral("RandomMode"), QStringLiteral("1")}});
    ASSERT_EQ(list().size(), 2);
    playlist().setCurIdx(1);
    m_folders.fill(videos, {"a.mov", "b.mov", "c.mov", "d.mov"});
    ASSERT_TRUE(playlist().takeNews().has_value());
    EXPECT_EQ(entryAtCurIdx(), QStringLiteral("d.mov"));
}

TEST_F(PlaylistFoldersTest, place_staysInTheList_whereAnEntryIsThereTwice)
{
    m_folders.fill(videos, {"b.mov"});
    usePlaylist({remote, videosEntry, remote, videosEntry});
    ASSERT_EQ(list().size(), 4);
    playlist().setCurIdx(3);
    m_folders.fill(videos, {"a.mov"});
    ASSERT_TRUE(playlist().takeNews().has_value());
    EXPECT_EQ(playlist().curIdx(), 3);
}

TEST_F(PlaylistFoldersTest, holds_tellsWhatLiesInAFolder)
{
    usePlaylist({videosEntry, QStringLiteral("folder:///Films/")});
    const PlaylistFolders& folders = playlist().folders();
    EXPECT_TRUE(folders.holds(QUrl(QStringLiteral("file:///home/ada/Videos/in/a.mov"))));
    EXPECT_TRUE(folders.holds(QUrl(QStringLiteral("file:///Films/a.mov"))));
    EXPECT_FALSE(folders.holds(QUrl(QStringLiteral("file:///home/ada/Videos2/a.mov"))));
    EXPECT_FALSE(folders.holds(QUrl(QStringLiteral("http://example.com/home/ada/Videos/a.mov"))));
}

} // namespace kestro
