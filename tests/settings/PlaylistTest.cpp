#include "settings/Playlist.h"

#include "platform/base/Bounds.h"
#include "platform/base/Log.h"
#include "settings/PlaylistFixture.h"

namespace kestro {

namespace {

class PlaylistOfURLs : public PlaylistFixture {};

const QString automatic = QStringLiteral("auto://LatestTrailers/6/480");
const QString remote = QStringLiteral("http://example.com/a.mov");

QStringList trailers(int width, int count)
{
    QStringList found;
    for (int number = 1; number <= count; ++number)
        found.append(RecordingTrailers::urlText(width, number));
    return found;
}

} // namespace

TEST_F(PlaylistOfURLs, movieFileList_isTheDefaultOne_whenNothingIsStored)
{
    useSettings({});
    EXPECT_EQ(texts(playlist().plistFileList()), (QStringList{installedURL(defalutMovieURL_104), automatic}));
    EXPECT_TRUE(m_trailers.calls.empty());
    EXPECT_EQ(texts(playlist().fileList()),
              QStringList(installedURL(defalutMovieURL_104)) + trailers(480, 6));
}

TEST_F(PlaylistOfURLs, movieFileList_isTheDefaultOne_whenOnlyAVersionIsStored)
{
    useSettings({{QStringLiteral("Ver"), QStringLiteral("4")}});
    EXPECT_EQ(texts(playlist().fileList()),
              QStringList(installedURL(defalutMovieURL_104)) + trailers(480, 6));
}

TEST_F(PlaylistOfURLs, isDefault_untilAListIsStored)
{
    useSettings({{QStringLiteral("Ver"), QStringLiteral("5")}});
    EXPECT_TRUE(playlist().isDefault());
    useList("5", QStringList());
    EXPECT_FALSE(playlist().isDefault());
}

TEST_F(PlaylistOfURLs, defaultMovie_isTheFirstThatIsInstalled)
{
    useSettings({});
    install(defalutMovieURL);
    EXPECT_EQ(texts(playlist().plistFileList()).front(), installedURL(defalutMovieURL));
    install(idvdFishMoviePath);
    EXPECT_EQ(texts(playlist().plistFileList()).front(), installedURL(idvdFishMoviePath));
}

TEST_F(PlaylistOfURLs, movieFileList_keepsOrderAndText_ofVersion5)
{
    const QStringList stored{QStringLiteral("file:///Films/a%20b.mov"), remote, automatic,
                             QStringLiteral("https://example.com/b.swf?c=d&e#f"), remote};
    useList("5", stored);
    EXPECT_EQ(texts(playlist().plistFileList()), stored);
}

TEST_F(PlaylistOfURLs, fileList_isCut_whenTooManyMoviesWouldPlay)
{
    const QVariantList many(Bounds::playlistEntries + 1, QStringLiteral("http://h/a.mov"));
    useList("5", many);
    QStringList log;
    const LogCapture capture([&log](const QString& line) { log.append(line); });
    EXPECT_EQ(playlist().fileList().size(), Bounds::playlistEntries);
    EXPECT_EQ(log, QStringList{QStringLiteral("Only the first 500000 movies of the playlist are played.")});
    EXPECT_EQ(playlist().plistFileList().size(), many.size()) << "what is edited stays whole";
}

TEST_F(PlaylistOfURLs, movieFileList_isEmpty_whenVersion5HoldsAnEmptyList)
{
    useList("5", QVariantList());
    EXPECT_TRUE(playlist().plistFileList().isEmpty());
    EXPECT_TRUE(playlist().fileList().isEmpty());
}

TEST_F(PlaylistOfURLs, movieFileList_isEmpty_whenVersion5HoldsNoList)
{
    for (const QVariant& object : {QVariant(remote), QVariant(5), QVariant(QVariantMap{{remote, remote}})}) {
        useList("5", object);
        EXPECT_TRUE(playlist().fileList().isEmpty()) << object.typeName();
    }
}

TEST_F(PlaylistOfURLs, movieFileList_leavesOut_whatIsNoAbsoluteURL)
{
    useList("5", QVariantList{QStringLiteral(""), QStringLiteral("no url"), QStringLiteral("/Films/a.mov"),
                              QStringLiteral("a.mov"), QStringLiteral("http://exa mple/"),
                              QStringLiteral("//host/a"), QVariant(5), QVariant(true),
                              QVariant(QVariantList{remote}), QVariant(remote.toUtf8()), remote});
    EXPECT_EQ(texts(playlist().plistFileList()), QStringList(remote));
    EXPECT_EQ(texts(playlist().fileList()), QStringList(remote));
}

TEST_F(PlaylistOfURLs, automaticEntry_becomesItsTrailers_inItsPlace)
{
    useList("5", QStringList{remote, QStringLiteral("auto://LatestTrailers/2/640"), remote});
    EXPECT_EQ(texts(playlist().fileList()), QStringList(remote) + trailers(640, 2) + QStringList(remote));
}

TEST_F(PlaylistOfURLs, trailers_areKnownFromOthers)
{
    useList("5", QStringList{remote, QStringLiteral("auto://LatestTrailers/2/640")});
    const QList<QUrl> list = playlist().fileList();
    ASSERT_EQ(list.size(), 3);
    EXPECT_FALSE(playlist().isTrailer(list[0]));
    EXPECT_TRUE(playlist().isTrailer(list[1]));
    EXPECT_TRUE(playlist().isTrailer(list[2]));
}

TEST_F(PlaylistOfURLs, automaticEntry_takesItsNumbers_fromTheLastTwoParts)
{
    struct Case {
        const char* url;
        int count;
        int width;
    };
    for (const Case& c :
         {Case{"auto://LatestTrailers/6/480", 6, 480}, Case{"auto://Anything/3/640", 3, 640},
          Case{"auto://LatestTrailers/1/2/3", 2, 3}, Case{"auto:///4/320", 4, 320},
          Case{"auto://x/6/480/", 6, 480}, Case{"auto://x/six/wide", 0, 0}, Case{"auto://x/2nd/480p", 2, 480},
          Case{"auto://x///", 0, 0}, Case{"auto://x/%36/480?1/2", 6, 480}}) {
        m_trailers.calls.clear();
        useList("5", QStringList(QString::fromUtf8(c.url)));
        EXPECT_EQ(playlist().fileList().size(), c.count) << c.url;
        ASSERT_EQ(m_trailers.calls.size(), 1U) << c.url;
        EXPECT_EQ(m_trailers.calls.front(), (RecordingTrailers::Call{c.count, c.width, {}})) << c.url;
    }
}

TEST_F(PlaylistOfURLs, automaticEntry_becomesMoviesOnTheWebOnly_withOneLine)
{
    for (const char* url :
         {"http://h/x.swf", "https://h/x.SWF/", "http://h/x.swf?.mov", "http://h/x%2Eswf#.mov",
          "file:///home/ada/t.mov", "file:///home/ada/x.swf", "edl://t.mov", "smb://h/t.mov",
          "data:video/mp4,t.mov", "http:///t.mov", "t.mov", "/t.mov", ""})
        m_trailers.others.append(QUrl(QString::fromLatin1(url)));
    QStringList logged;
    const LogCapture capture([&](const QString& line) { logged.append(line); });
    useList("5", QStringList(QStringLiteral("auto://LatestTrailers/2/640")));
    EXPECT_EQ(texts(playlist().fileList()), trailers(640, 2));
    EXPECT_EQ(logged, QStringList(QStringLiteral("13 trailers are no movies on a web site and are left out; "
                                                 "the first: http://h/x.swf")));
}

// What a person has put there is theirs.
TEST_F(PlaylistOfURLs, plainEntries_mayNameAnything)
{
    const QStringList stored{QStringLiteral("file:///home/ada/x.swf"), QStringLiteral("smb://h/t.mov"),
                             QStringLiteral("http://h/x.swf")};
    useList("5", stored);
    EXPECT_EQ(texts(playlist().fileList()), stored);
}

TEST_F(PlaylistOfURLs, automaticEntry_isDropped_whenItsPathHasTooFewParts)
{
    const QStringList stored{QStringLiteral("auto://LatestTrailers/480"),
                             QStringLiteral("auto://LatestTrailers"),
                             QStringLiteral("auto://LatestTrailers/"), QStringLiteral("auto:x/6/480")};
    useList("5", stored);
    EXPECT_EQ(texts(playlist().plistFileList()), stored);
    EXPECT_TRUE(playlist().fileList().isEmpty());
    EXPECT_TRUE(m_trailers.calls.empty());
    EXPECT_EQ(m_trailers.scans, 0);
    EXPECT_FALSE(playlist().hasAutoTrailers());
}

TEST_F(PlaylistOfURLs, expansion_asksForOneScan_inTheLifeOfAView)
{
    useList("5", QStringList{automatic, automatic});
    EXPECT_FALSE(playlist().hasAutoTrailers());
    EXPECT_EQ(playlist().fileList().size(), 12);
    playlist().dropFileList();
    EXPECT_EQ(playlist().fileList().size(), 12);
    EXPECT_EQ(m_trailers.scans, 1);
    EXPECT_TRUE(playlist().hasAutoTrailers());
}

TEST_F(PlaylistOfURLs, expansion_asksForNoScan_inAPreview)
{
    useList("5", QStringList(automatic), true);
    EXPECT_EQ(texts(playlist().fileList()), trailers(480, 6));
    EXPECT_EQ(m_trailers.scans, 0);
    EXPECT_FALSE(playlist().hasAutoTrailers());
}

TEST_F(PlaylistOfURLs, expansion_asksForNoScan_inARunThatLeavesNothing)
{
    useList("5", QStringList(automatic));
    m_settings->settings().store().setOptionsForThisRun(
        {{QStringLiteral("LeavesNothing"), QStringLiteral("1")}});
    EXPECT_EQ(texts(playlist().fileList()), trailers(480, 6));
    EXPECT_EQ(m_trailers.scans, 0);
    EXPECT_FALSE(playlist().hasAutoTrailers());
}

TEST_F(PlaylistOfURLs, editing_asksForNoScan)
{
    useList("5", QStringList(automatic));
    EXPECT_EQ(texts(playlist().plistFileList()), QStringList(automatic));
    EXPECT_EQ(m_trailers.scans, 0);
}

TEST_F(PlaylistOfURLs, expansion_leavesOutFailedTrailers)
{
    useList("5", QStringList(QStringLiteral("auto://LatestTrailers/3/480")));
    playlist().addFailedURL(QUrl(RecordingTrailers::urlText(480, 2)));
    EXPECT_EQ(playlist().failedURLList(), QSet<QString>{RecordingTrailers::urlText(480, 2)});
    EXPECT_EQ(texts(playlist().fileList()),
              (QStringList{RecordingTrailers::urlText(480, 1), RecordingTrailers::urlText(480, 3)}));
    EXPECT_EQ(m_trailers.calls.front().excluded, playlist().failedURLList());
}

TEST_F(PlaylistOfURLs, fileList_isKept_untilDropped)
{
    useList("5", QStringList(automatic));
    EXPECT_EQ(playlist().fileList().size(), 6);
    EXPECT_EQ(playlist().fileList().size(), 6);
    EXPECT_EQ(m_trailers.calls.size(), 1U);

    m_settings->settings().store().setPlist(
        {{QStringLiteral("FileList"), QStringList(remote)}, {QStringLiteral("Ver"), QStringLiteral("5")}});
    EXPECT_EQ(playlist().fileList().size(), 6);
    playlist().dropFileList();
    EXPECT_EQ(texts(playlist().fileList()), QStringList(remote));
}

TEST_F(PlaylistOfURLs, movieFileList_followsTheOptionsForThisRun)
{
    useList("5", QStringList(automatic));
    m_settings->settings().store().setOptionsForThisRun({{QStringLiteral("FileList"), QStringList(remote)}});
    EXPECT_EQ(texts(playlist().plistFileList()), QStringList(remote));
}

TEST_F(PlaylistOfURLs, movieFileStrings_keepTheLettersOfEachEntry_whenTheyDifferInCaseOnly)
{
    const QStringList stored{QStringLiteral("http://Example.COM/a.mov"),
                             QStringLiteral("http://example.com/a.mov")};
    useList("5", stored);
    EXPECT_EQ(playlist().movieFileStrings(false), stored);
}

TEST_F(PlaylistOfURLs, movieFileStrings_keepTheLettersThatAreStored)
{
    const QStringList stored{
        QStringLiteral("auto://Anything/3/640"), QStringLiteral("HTTP://Example.COM/A.mov"),
        QStringLiteral("auto://LatestTrailers/2/480"), QStringLiteral("file:///Films/B%c3%bc.mov")};
    useList("5", stored);
    EXPECT_EQ(playlist().movieFileStrings(false), stored);
    EXPECT_EQ(playlist().movieFileStrings(true),
              trailers(640, 3) + stored.mid(1, 1) + trailers(480, 2) + stored.mid(3, 1));
}

TEST_F(PlaylistOfURLs, movieFileStrings_areAbsoluteStrings_whereTheStoredTextIsNone)
{
    useList("5", QStringList{QStringLiteral("file:///Films/a b ü.mov"), QStringLiteral("no url")});
    EXPECT_EQ(playlist().movieFileStrings(true),
              QStringList(QStringLiteral("file:///Films/a%20b%20%C3%BC.mov")));
    useList("4", QStringList(QStringLiteral("/Films/A b.mov")));
    EXPECT_EQ(playlist().movieFileStrings(true), QStringList(QStringLiteral("file:///Films/A%20b.mov")));
    useSettings({});
    EXPECT_EQ(playlist().movieFileStrings(false), texts(playlist().plistFileList()));
}

TEST_F(PlaylistOfURLs, fileList_holdsEveryEntry_ofALongList)
{
    QStringList stored;
    for (int number = 0; number < 10'000; ++number)
        stored.append(QStringLiteral("file:///Films/Film%20%1.mov").arg(number));
    useList("5", stored);
    EXPECT_EQ(texts(playlist().fileList()), stored);
}

} // namespace kestro
