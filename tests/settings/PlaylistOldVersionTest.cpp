#include "settings/Playlist.h"
#include "settings/PlaylistFixture.h"

namespace kestro {

namespace {

class PlaylistOfPaths : public PlaylistFixture {};

const QString automatic = QStringLiteral("auto://LatestTrailers/6/480");

} // namespace

TEST_F(PlaylistOfPaths, movieFileList_makesFileURLs_inOrder)
{
    for (const char* version : {"4", "0", "-1", "abc", static_cast<const char*>(nullptr)}) {
        useList(version, QStringList{QStringLiteral("/Films/b ü#?.mov"), QStringLiteral("/Films/100%.mov")});
        const QStringList expected{QStringLiteral("file:///Films/b%20%C3%BC%23%3F.mov"),
                                   QStringLiteral("file:///Films/100%25.mov")};
        EXPECT_EQ(texts(playlist().plistFileList()), expected) << (version == nullptr ? "none" : version);
        EXPECT_EQ(texts(playlist().fileList()), expected) << (version == nullptr ? "none" : version);
    }
}

TEST_F(PlaylistOfPaths, movieFileList_takesTheVersion_byItsNumber)
{
    const QString url = QStringLiteral("http://example.com/a.mov");
    for (const char* version : {"5", "6", "5.9", " 5 beta"}) {
        useList(version, QStringList(url));
        EXPECT_EQ(texts(playlist().fileList()), QStringList(url)) << version;
    }
    useList("4.9", QStringList(QStringLiteral("/a.mov")));
    EXPECT_EQ(texts(playlist().fileList()), QStringList(QStringLiteral("file:///a.mov")));
}

TEST_F(PlaylistOfPaths, movieFileList_staysUnexpanded_whenTheListIsEmpty)
{
    useList("4", QVariantList());
    const QStringList expected{installedURL(defalutMovieURL_104), automatic};
    EXPECT_EQ(texts(playlist().plistFileList()), expected);
    EXPECT_EQ(texts(playlist().fileList()), expected);
    EXPECT_TRUE(m_trailers.calls.empty());
    EXPECT_EQ(m_trailers.scans, 0);
}

TEST_F(PlaylistOfPaths, movieFileList_isTheEmptyListsOne_whenThereIsNoList)
{
    for (const QVariant& object :
         {QVariant(QStringLiteral("/a.mov")), QVariant(5), QVariant(QVariantMap())}) {
        useList("4", object);
        EXPECT_EQ(texts(playlist().fileList()), (QStringList{installedURL(defalutMovieURL_104), automatic}))
            << object.typeName();
    }
}

TEST_F(PlaylistOfPaths, isDefault_whenTheListIsEmpty)
{
    useList("4", QStringList());
    EXPECT_TRUE(playlist().isDefault());
    useList("4", QStringList{QStringLiteral("/a.mov")});
    EXPECT_FALSE(playlist().isDefault());
}

TEST_F(PlaylistOfPaths, movieFileList_movesOnFromTheOldDefault_whenTheThemeMovieIsInstalled)
{
    useList("4", QStringList(defalutMovieURL));
    EXPECT_EQ(texts(playlist().fileList()),
              QStringList(absoluteString(QUrl::fromLocalFile(defalutMovieURL))));
    install(idvdFishMoviePath);
    playlist().dropFileList();
    EXPECT_EQ(texts(playlist().fileList()), QStringList(installedURL(idvdFishMoviePath)));
    EXPECT_EQ(texts(playlist().plistFileList()), QStringList(installedURL(idvdFishMoviePath)));
}

TEST_F(PlaylistOfPaths, movieFileList_keepsTheOldDefault_whenItIsNotAlone)
{
    install(idvdFishMoviePath);
    const QString old = absoluteString(QUrl::fromLocalFile(defalutMovieURL));
    useList("4", QStringList{defalutMovieURL, defalutMovieURL});
    EXPECT_EQ(texts(playlist().fileList()), (QStringList{old, old}));
    useList("4", QStringList(defalutMovieURL_104));
    EXPECT_EQ(texts(playlist().fileList()),
              QStringList(absoluteString(QUrl::fromLocalFile(defalutMovieURL_104))));
    useList("5", QStringList(old));
    EXPECT_EQ(texts(playlist().fileList()), QStringList(old));
}

TEST_F(PlaylistOfPaths, movieFileList_leavesOut_whatIsNoPath)
{
    useList("4", QVariantList{QVariant(5), QStringLiteral(""), QVariant(QVariantList()),
                              QStringLiteral("/a.mov")});
    EXPECT_EQ(texts(playlist().fileList()), QStringList(QStringLiteral("file:///a.mov")));
}

TEST_F(PlaylistOfPaths, movieFileList_completesAPath_thatIsRelative)
{
    useList("4", QStringList(QStringLiteral("a.mov")));
    EXPECT_EQ(texts(playlist().fileList()), QStringList(absoluteString(QUrl::fromLocalFile(
                                                QDir::current().absoluteFilePath(QStringLiteral("a.mov"))))));
}

} // namespace kestro
