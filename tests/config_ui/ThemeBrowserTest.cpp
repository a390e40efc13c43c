#include "config_ui/ThemeBrowser.h"

#include "config_ui/ThemeFolder.h"
#include "config_ui/ThemeTableModel.h"

#include <QUrl>

namespace kestro {

namespace {

constexpr const char* recommended[] = {
    "0006_Travel.theme/Contents/Resources/Travel_Loop_Compass_NTSC.mov",
    "0006_Travel.theme/Contents/Resources/TravelBaggageTransitionOrnament.pox/Contents/Material/"
    "9B8122FC-3A71-11D9-A16C-000A95C37E10.mov",
    "0006_Travel.theme/Contents/Resources/TravelGlobeTransitionOrnament.pox/Contents/Material/"
    "AE1DF65F-3DD7-11D9-BF94-000A95C37E10.mov",
    "0010_Anime_Pop.theme/Contents/Resources/AnimeBackgroundMovie.NTSC.mov",
    "0010_Anime_Pop.theme/Contents/Resources/AnimeDropZone.pox/Contents/Material/"
    "7E407303-4277-11D9-B9DD-000A95A687E6.mov",
    "0012_Droplet.theme/Contents/Resources/BackgroundMovie.PAL.mov",
    "0015_Scrapbook.theme/Contents/Resources/ScrapbookElements.pox/Contents/Material/Scrapbook_1B.mov",
    "0015_Scrapbook.theme/Contents/Resources/ScrapbookElements.pox/Contents/Material/Scrapbook_2B.mov",
    "0015_Scrapbook.theme/Contents/Resources/ScrapbookElements.pox/Contents/Material/Scrapbook_3B.mov",
    "002_Projector.theme/Contents/Resources/BackgroundMovie.PAL.mov",
    "003_Gen_Y.theme/Contents/Resources/BackgroundMovie.NTSC.mov",
    "011_Confetti.theme/Contents/Resources/BackgroundMovie.NTSC.mov",
    "01_Wedding_Bronze_One.theme/Contents/Resources/BackgroundMovie.NTSC.mov",
    "10_Road_Trip_One.theme/Contents/Resources/autoPlayMovieRoadTrip.NTSC.mov",
    "10_Road_Trip_One.theme/Contents/Resources/BackgroundMovie.NTSC.mov",
    "11_Road_Trip_Two.theme/Contents/Resources/BackgroundMovie.NTSC.mov",
    "14_Fish_One.theme/Contents/Resources/BackgroundMovie.NTSC.mov",
    "15_Fish_Two.theme/Contents/Resources/BackgroundMovie.PAL.mov",
    "17_Marquee.theme/Contents/Resources/autoPlayMovieMarquee.NTSC.mov",
};

class ThemeBrowserTest : public test::ThemeFolderTest {
protected:
    [[nodiscard]] QStringList paths() const
    {
        QStringList found;
        for (const ThemeRecord& record : m_browser.themeList())
            found.append(record.path);
        return found;
    }
    void expectPaths(const QStringList& expected) const
    {
        EXPECT_EQ(paths().join(u'\n').toStdString(), expected.join(u'\n').toStdString());
    }

    ThemeBrowser m_browser{m_playlist};
};

} // namespace

TEST_F(ThemeBrowserTest, recomenedList_namesNineteenMovies_inTheirOrder)
{
    QStringList expected;
    for (const char* path : recommended)
        expected.append(QStringLiteral("/Applications/iDVD.app/Contents/Resources/") + QLatin1String(path));
    ASSERT_EQ(expected.size(), 19);
    EXPECT_EQ(recomenedList, expected);
}

TEST_F(ThemeBrowserTest, scan_findsMoviesDepthFirst_inTheOrderOfNames)
{
    const QString last = put(QStringLiteral("/c.mov"));
    const QString deep = put(QStringLiteral("/b.theme/Contents/z.bundle/1.mov"));
    const QString deeper = put(QStringLiteral("/b.theme/Contents/z.bundle/2/x.mov"));
    const QString afterDeep = put(QStringLiteral("/b.theme/Contents/zz.mov"));
    const QString first = put(QStringLiteral("/a.mov"));
    m_browser.scanIDVDThemes(inRoot(program));
    expectPaths({first, deep, deeper, afterDeep, last});
}

TEST_F(ThemeBrowserTest, scan_takesMoviesAlone_whateverElseIsThere)
{
    const QString movie = put(QStringLiteral("/good.mov"));
    const QString hidden = put(QStringLiteral("/.hidden.mov"));
    for (const char* other :
         {"/upper.MOV", "/mixed.Mov", "/mov", "/.mov", "/a.mov.txt", "/a.mpg", "/a.movie"})
        put(QLatin1String(other));
    put(QStringLiteral("/folder.mov/inside.txt"));
    m_browser.scanIDVDThemes(inRoot(program));
    expectPaths({hidden, movie});
}

TEST_F(ThemeBrowserTest, scan_looksIntoAFolder_thatIsNamedAsAMovieIs)
{
    const QString inside = put(QStringLiteral("/folder.mov/inside.mov"));
    m_browser.scanIDVDThemes(inRoot(program));
    expectPaths({inside});
}

TEST_F(ThemeBrowserTest, scan_appends_whenThereAreMoviesAlready)
{
    const QString movie = put(QStringLiteral("/a/x.mov"));
    m_browser.scanIDVDThemes(inRoot(program));
    m_browser.scanIDVDThemes(inRoot(program + QStringLiteral("/a")));
    expectPaths({movie, movie});
}

TEST_F(ThemeBrowserTest, scan_ends_whenAFolderLinksBackToOneAboveIt)
{
    const QString movie = put(QStringLiteral("/a/x.mov"));
    ASSERT_TRUE(QFile::link(inRoot(program), inRoot(program + QStringLiteral("/a/again"))));
    m_browser.scanIDVDThemes(inRoot(program));
    expectPaths({movie});
}

TEST_F(ThemeBrowserTest, scan_followsALink_whenItLeadsAside)
{
    const QString movie = put(QStringLiteral("/Versions/A/x.mov"));
    ASSERT_TRUE(QFile::link(QStringLiteral("A"), inRoot(program + QStringLiteral("/Versions/Current"))));
    m_browser.scanIDVDThemes(inRoot(program));
    expectPaths({movie, inRoot(program + QStringLiteral("/Versions/Current/x.mov"))});
}

TEST_F(ThemeBrowserTest, scan_findsNothing_whenThereIsNoFolder)
{
    m_browser.scanIDVDThemes(inRoot(program));
    m_browser.scanIDVDThemes(put(QStringLiteral("/file.mov")));
    expectPaths({});
}

TEST_F(ThemeBrowserTest, record_isRecommended_whenItsPathIsOneOfTheListInTheRoot)
{
    for (const char* path : recommended)
        put(QStringLiteral("/Contents/Resources/") + QLatin1String(path));
    put(QStringLiteral("/Contents/Resources/0012_Droplet.theme/Contents/Resources/BackgroundMovie.NTSC.mov"));
    put(QStringLiteral("/0012_Droplet.theme/Contents/Resources/BackgroundMovie.PAL.mov"));
    m_browser.scanIDVDThemes(inRoot(program));
    ASSERT_EQ(m_browser.themeList().size(), 21);
    for (const ThemeRecord& record : m_browser.themeList()) {
        const bool isListed = recomenedList.contains(record.path.mid(m_root.path().size()));
        EXPECT_EQ(record.isRecommended, isListed) << qPrintable(record.path);
    }
}

TEST_F(ThemeBrowserTest, record_isNotRecommended_whenItLiesElsewhereUnderThatName)
{
    QTemporaryDir elsewhere;
    const QString folder = elsewhere.path() + recomenedList[5];
    ASSERT_TRUE(QDir().mkpath(QFileInfo(folder).path()));
    QFile file(folder);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    m_browser.scanIDVDThemes(elsewhere.path());
    ASSERT_EQ(m_browser.themeList().size(), 1);
    EXPECT_FALSE(m_browser.themeList()[0].isRecommended);
}

TEST_F(ThemeBrowserTest, showing_scansTheDVDProgramOnce_whenRepeated)
{
    const QString movie = put(QStringLiteral("/a.mov"));
    m_browser.showIDVDThemes();
    put(QStringLiteral("/b.mov"));
    m_browser.showIDVDThemes();
    expectPaths({movie});
}

TEST_F(ThemeBrowserTest, showing_scansOnce_whenNothingIsFound)
{
    m_browser.showIDVDThemes();
    put(QStringLiteral("/late.mov"));
    m_browser.showIDVDThemes();
    expectPaths({});
}

TEST_F(ThemeBrowserTest, adding_handsOnTheSelectedMovies_inAscendingOrder)
{
    QList<QUrl> urls;
    for (const char* name : {"/a b.mov", "/b.mov", "/c#d.mov", "/e.mov"})
        urls.append(QUrl::fromLocalFile(put(QLatin1String(name))));
    m_browser.showIDVDThemes();
    m_browser.closeIDVDThemesPanel(1, {3, 0, 2});
    EXPECT_EQ(m_playlist.received, (QList<QUrl>{urls[0], urls[2], urls[3]}));
    EXPECT_EQ(m_playlist.calls, 1);
}

TEST_F(ThemeBrowserTest, adding_reloadsThePlaylist_whenNothingIsSelected)
{
    m_browser.closeIDVDThemesPanel(1, {});
    EXPECT_EQ(m_playlist.calls, 1);
    EXPECT_TRUE(m_playlist.received.isEmpty());
}

TEST_F(ThemeBrowserTest, cancelling_handsOnNothing_whenMoviesAreSelected)
{
    put(QStringLiteral("/a.mov"));
    m_browser.showIDVDThemes();
    m_browser.closeIDVDThemesPanel(0, {0});
    EXPECT_EQ(m_playlist.calls, 0);
}

TEST_F(ThemeBrowserTest, themeName_isThatOfTheFolder_withoutNumberAndLowLines)
{
    EXPECT_EQ(themeName(recomenedList[3]).toStdString(), "Anime Pop");
    EXPECT_EQ(themeName(recomenedList[12]).toStdString(), "Wedding Bronze One");
    EXPECT_EQ(themeName(QStringLiteral("/x/Plain.theme/a.mov")).toStdString(), "Plain");
    EXPECT_EQ(themeName(QStringLiteral("/x/Intro_1.2.mov")).toStdString(), "Intro 1.2");
}

} // namespace kestro
