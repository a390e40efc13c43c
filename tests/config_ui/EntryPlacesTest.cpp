#include "config_ui/EntryPlaces.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

QStringList placesOf(const QStringList& urls)
{
    QList<PlaylistEntry> entries;
    for (const QString& url : urls)
        entries.append({QUrl(url), url});
    return tellingPlaces(entries);
}

} // namespace

TEST(EntryPlaces, areEmpty_whereEveryNameIsOnce)
{
    EXPECT_EQ(placesOf({"file:///a/x.mov", "file:///b/y.mov"}), (QStringList{"", ""}));
    EXPECT_TRUE(placesOf({}).isEmpty());
}

TEST(EntryPlaces, areTheNearestFoldersThatDiffer)
{
    EXPECT_EQ(placesOf({"file:///a/one/in/x.mov", "file:///m.mov", "file:///a/two/in/x.mov"}),
              (QStringList{"one", "", "two"}));
    EXPECT_EQ(placesOf({"file:///My%20Movies/x.mov", "file:///x.mov"}), (QStringList{"My Movies", ""}));
}

TEST(EntryPlaces, areTheThemes_whereFoldersAre)
{
    EXPECT_EQ(placesOf({"file:///r/0012_Droplet.theme/Contents/Resources/B.mov",
                        "file:///r/011_Confetti.theme/Contents/Resources/B.mov"}),
              (QStringList{"Droplet", "Confetti"}));
}

TEST(EntryPlaces, areTheServers_whereNoFolderDiffers)
{
    EXPECT_EQ(placesOf({"http://one/in/x.mov", "http://two/in/x.mov"}), (QStringList{"one", "two"}));
}

TEST(EntryPlaces, areWhole_whereNoOneFolderTellsThemAll)
{
    EXPECT_EQ(placesOf({"file:///a/1/x.mov", "file:///a/2/x.mov", "file:///b/1/x.mov"}),
              (QStringList{"a/1", "2", "b"}));
}

TEST(EntryPlaces, areEmpty_forTheNewestTrailers)
{
    EXPECT_EQ(placesOf({"auto://LatestTrailers/6/480", "auto://LatestTrailers/1/640"}),
              (QStringList{"", ""}));
}

TEST(EntryPlaces, areEmpty_forTheSameEntryTwice)
{
    EXPECT_EQ(placesOf({"file:///a/x.mov", "file:///a/x.mov"}), (QStringList{"", ""}));
}

} // namespace kestro
