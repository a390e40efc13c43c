#include "publish/TitleGroups.h"

#include <QStringList>

#include <algorithm>
#include <gtest/gtest.h>

namespace kestro {
namespace {

SourceMovie movie(const char* path, int width, int height = 200)
{
    SourceMovie result;
    result.path = QString::fromUtf8(path);
    result.width = width;
    result.height = height;
    result.bytes = 1000;
    return result;
}

/// "Name: 480 640" of each title, in order.
QStringList summaryOf(const TitleGroups& groups)
{
    QStringList lines;
    for (const PublishedTitle& title : groups.titles) {
        QString line = title.name + u':';
        for (const PublishedMovie& one : title.movies)
            line += QStringLiteral(" %1").arg(one.source.width);
        lines += line;
    }
    return lines;
}

QStringList summary(std::vector<SourceMovie> movies)
{
    return summaryOf(groupTitles(std::move(movies)));
}

QStringList lines(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result += QString::fromUtf8(text);
    return result;
}

TEST(TitleGroups, areSizesOfOneTitle_whenNamesDifferInTheSize)
{
    EXPECT_EQ(summary({movie("waves_640.mov", 640), movie("waves_480.mov", 480), movie("reef_480.mp4", 480)}),
              lines({"Reef: 480", "Waves: 480 640"}));
}

TEST(TitleGroups, areTitlesOfTheirOwn_whenTheNumberIsNoSize)
{
    EXPECT_EQ(summary({movie("Waves 1984.mov", 640), movie("Waves 2012.mov", 640)}),
              lines({"Waves 1984: 640", "Waves 2012: 640"}));
}

TEST(TitleGroups, areNamedByTheFolder_whenFileNamesSayNothing)
{
    EXPECT_EQ(summary({movie("Big Film/480.mov", 480), movie("Big Film/640.mov", 640),
                       movie("Small_Film/t_480.mov", 480), movie("Small_Film/t_640.mov", 640)}),
              lines({"Big Film: 480 640", "Small Film: 480 640"}));
}

TEST(TitleGroups, areTold_whenOneFolderHoldsATrailerAndATeaser)
{
    EXPECT_EQ(summary({movie("Film/teaser_480.mov", 480), movie("Film/trailer_480.mov", 480)}),
              lines({"Film: Teaser: 480", "Film: Trailer: 480"}));
}

TEST(TitleGroups, keepFileNames_whenAFolderIsAShelf)
{
    const auto groups = groupTitles({movie("space/far.mov", 480), movie("space/farther.mov", 480)});
    EXPECT_EQ(summaryOf(groups), lines({"Far: 480", "Farther: 480"}));
    EXPECT_EQ(groups.titles.front().shelf, QStringLiteral("Space"));
}

TEST(TitleGroups, areOneTitle_whenTheSizesAreFolders)
{
    EXPECT_EQ(summary({movie("480p/waves.mov", 480), movie("640p/waves.mov", 640)}),
              lines({"Waves: 480 640"}));
}

TEST(TitleGroups, nameTheTitleByTheNumber_whenThatIsAllThereIs)
{
    EXPECT_EQ(summary({movie("480.mov", 480)}), lines({"480: 480"}));
}

TEST(TitleGroups, leaveOneOut_whenTwoAreOfOneTitleAndWidth)
{
    const auto groups = groupTitles({movie("waves_480.avi", 480), movie("waves_480.mp4", 480)});
    EXPECT_EQ(summaryOf(groups), lines({"Waves: 480"}));
    EXPECT_EQ(groups.titles[0].movies[0].source.path, QStringLiteral("waves_480.mp4"));
    ASSERT_EQ(groups.leftOut.size(), 1U);
    EXPECT_EQ(groups.leftOut[0].path, QStringLiteral("waves_480.avi"));
    EXPECT_TRUE(groups.leftOut[0].reason.contains(QStringLiteral("waves_480.mp4")));
}

TEST(TitleGroups, giveEachMovieAMovName_andAnotherItsOwnAsWell)
{
    const auto groups =
        groupTitles({movie("Ärger (2), neu_480.MP4", 480), movie("Ärger (2), neu_640.MOV", 640)});
    ASSERT_EQ(groups.titles.size(), 1U);
    const auto& movies = groups.titles[0].movies;
    EXPECT_EQ(movies[0].fileName, QStringLiteral("arger-2-neu_480.mov"));
    EXPECT_EQ(movies[0].originalName, QStringLiteral("arger-2-neu_480.mp4"));
    EXPECT_EQ(movies[1].fileName, QStringLiteral("arger-2-neu_640.mov"));
    EXPECT_EQ(movies[1].originalName, QString());
}

TEST(TitleGroups, haveFoldersOfTheirOwn_whenTitlesHaveOneName)
{
    const auto groups = groupTitles({movie("a/Waves.mov", 480), movie("b/Waves.mov", 480)});
    ASSERT_EQ(groups.titles.size(), 2U);
    EXPECT_EQ(groups.titles[0].name, groups.titles[1].name);
    EXPECT_NE(groups.titles[0].slug, groups.titles[1].slug);
}

TEST(TitleGroups, areSortedByName_otherScriptsLast)
{
    EXPECT_EQ(summary({movie("海.mov", 480), movie("zebra.mov", 480), movie("Äpfel.mov", 480),
                       movie("birnen.mov", 480)}),
              lines({"Äpfel: 480", "Birnen: 480", "Zebra: 480", "海: 480"}));
}

TEST(TitleGroups, doNotDependOnTheOrderOfTheMovies)
{
    std::vector<SourceMovie> movies{movie("a/Waves_480.mov", 480), movie("b/Waves.mov", 480),
                                    movie("a/Waves_640.avi", 640), movie("a/Waves_640.mp4", 640)};
    const auto forwards = groupTitles(movies);
    std::ranges::reverse(movies);
    const auto backwards = groupTitles(movies);
    EXPECT_EQ(summaryOf(forwards), summaryOf(backwards));
    for (std::size_t i = 0; i < forwards.titles.size(); ++i)
        EXPECT_EQ(forwards.titles[i].slug, backwards.titles[i].slug);
    EXPECT_EQ(forwards.leftOut.front().path, backwards.leftOut.front().path);
}

} // namespace
} // namespace kestro
