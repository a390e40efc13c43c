#include "config_ui/ThemeBrowser.h"

#include "platform/base/FileName.h"
#include "platform/base/Paths.h"
#include "settings/MovieURL.h"
#include "settings/URLListReceiver.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QUrl>

#include <algorithm>

namespace kestro {

const QString dvdProgram = QStringLiteral("/Applications/iDVD.app");

namespace {

QString themeMovie(const char* path)
{
    return dvdProgram + QStringLiteral("/Contents/Resources/") + QLatin1String(path);
}

} // namespace

const QStringList recomenedList{
    themeMovie("0006_Travel.theme/Contents/Resources/Travel_Loop_Compass_NTSC.mov"),
    themeMovie("0006_Travel.theme/Contents/Resources/TravelBaggageTransitionOrnament.pox/Contents/Material/"
               "9B8122FC-3A71-11D9-A16C-000A95C37E10.mov"),
    themeMovie("0006_Travel.theme/Contents/Resources/TravelGlobeTransitionOrnament.pox/Contents/Material/"
               "AE1DF65F-3DD7-11D9-BF94-000A95C37E10.mov"),
    themeMovie("0010_Anime_Pop.theme/Contents/Resources/AnimeBackgroundMovie.NTSC.mov"),
    themeMovie("0010_Anime_Pop.theme/Contents/Resources/AnimeDropZone.pox/Contents/Material/"
               "7E407303-4277-11D9-B9DD-000A95A687E6.mov"),
    themeMovie("0012_Droplet.theme/Contents/Resources/BackgroundMovie.PAL.mov"),
    themeMovie(
        "0015_Scrapbook.theme/Contents/Resources/ScrapbookElements.pox/Contents/Material/Scrapbook_1B.mov"),
    themeMovie(
        "0015_Scrapbook.theme/Contents/Resources/ScrapbookElements.pox/Contents/Material/Scrapbook_2B.mov"),
    themeMovie(
        "0015_Scrapbook.theme/Contents/Resources/ScrapbookElements.pox/Contents/Material/Scrapbook_3B.mov"),
    themeMovie("002_Projector.theme/Contents/Resources/BackgroundMovie.PAL.mov"),
    themeMovie("003_Gen_Y.theme/Contents/Resources/BackgroundMovie.NTSC.mov"),
    themeMovie("011_Confetti.theme/Contents/Resources/BackgroundMovie.NTSC.mov"),
    themeMovie("01_Wedding_Bronze_One.theme/Contents/Resources/BackgroundMovie.NTSC.mov"),
    themeMovie("10_Road_Trip_One.theme/Contents/Resources/autoPlayMovieRoadTrip.NTSC.mov"),
    themeMovie("10_Road_Trip_One.theme/Contents/Resources/BackgroundMovie.NTSC.mov"),
    themeMovie("11_Road_Trip_Two.theme/Contents/Resources/BackgroundMovie.NTSC.mov"),
    themeMovie("14_Fish_One.theme/Contents/Resources/BackgroundMovie.NTSC.mov"),
    themeMovie("15_Fish_Two.theme/Contents/Resources/BackgroundMovie.PAL.mov"),
    themeMovie("17_Marquee.theme/Contents/Resources/autoPlayMovieMarquee.NTSC.mov"),
};

/// What one scan keeps in mind.
struct ThemeBrowser::Scan {
    QSet<QString> recommended; ///< where the recommended movies lie on this machine
    QStringList
        openFolders; ///< resolved, the folders that the scan is in: a link back to one is not followed
};

bool isThemeMovie(const QString& path)
{
    return extensionOf(path) == u"mov";
}

void ThemeBrowser::showIDVDThemes()
{
    if (m_hasScanned) return;
    m_hasScanned = true;
    scanIDVDThemes(platformPath(dvdProgram));
}

void ThemeBrowser::scanIDVDThemes(const QString& folder)
{
    Scan scan;
    for (const QString& path : recomenedList)
        scan.recommended.insert(platformPath(path));
    scanFolder(folder, scan);
}

void ThemeBrowser::scanFolder(const QString& folder, Scan& scan)
{
    const QString resolved = QFileInfo(folder).canonicalFilePath();
    if (resolved.isEmpty() || scan.openFolders.contains(resolved)) return;
    scan.openFolders.append(resolved);
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QString& name : QDir(folder).entryList(everything, QDir::Name)) {
        const QString path = folder + u'/' + name;
        if (QFileInfo(path).isDir())
            scanFolder(path, scan);
        else if (isThemeMovie(name))
            m_themeList.append({path, scan.recommended.contains(path)});
    }
    scan.openFolders.removeLast();
}

QUrl ThemeBrowser::movieURL(int row) const
{
    return QUrl::fromLocalFile(m_themeList[row].path);
}

void ThemeBrowser::closeIDVDThemesPanel(int tag, QList<int> rows)
{
    if (tag == 0) return;
    std::sort(rows.begin(), rows.end());
    QList<QUrl> accepted;
    for (const int row : rows)
        if (const QUrl url = movieURL(row); isValidURL(url)) accepted.append(url);
    m_playlist.addURLList(accepted);
}

} // namespace kestro
