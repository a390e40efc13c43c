#include "publish/SitePages.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <gtest/gtest.h>

namespace kestro {
namespace {

PublishedMovie movie(int width, int height, const QString& original = {})
{
    PublishedMovie result;
    result.source = {QStringLiteral("in.mov"), 1'400'000, 1, width, height, 75.4};
    result.fileName = QStringLiteral("t_%1.mov").arg(width);
    result.originalName = original;
    result.mimeType = QStringLiteral("video/mp4");
    return result;
}

PublishedTitle waves(const QString& name = QStringLiteral("Waves"))
{
    return {name,
            QStringLiteral("Sea"),
            QStringLiteral("waves"),
            {movie(480, 204), movie(640, 272, QStringLiteral("t_640.mp4"))},
            true};
}

TEST(SitePages, title_callsTheNarrowestInTheOlderForm_andTheOthersInTheNewer)
{
    const QByteArray page = SitePages(QString()).title(waves());
    EXPECT_TRUE(page.contains("QT_WriteOBJECT_XHTML('/trailers/waves/poster.mov','480','204','','href',"
                              "'/trailers/waves/t_480.mov','original','','type','video/mp4');"))
        << page.data();
    EXPECT_TRUE(page.contains("AC.Quicktime.packageMovie('m1','/trailers/waves/t_640.mov',"
                              "{width:640, height:272, original:'t_640.mp4', type:'video/mp4'});"))
        << page.data();
    EXPECT_EQ(page.count("QT_WriteOBJECT_XHTML("), 1);
    EXPECT_EQ(page.count("packageMovie("), 1);
}

TEST(SitePages, title_namesMoviesBelowTheBasePath_whenThereIsOne)
{
    const QByteArray page = SitePages(QStringLiteral("/%20%2C%C3%BC")).title(waves());
    EXPECT_TRUE(page.contains("'/%20%2C%C3%BC/trailers/waves/t_480.mov'")) << page.data();
    EXPECT_TRUE(page.contains("'/%20%2C%C3%BC/trailers/waves/t_640.mov',{width:640, height:272,"))
        << page.data();
}

TEST(SitePages, title_saysNameAndFacts)
{
    const QByteArray page = SitePages(QString()).title(waves(QString::fromUtf8("<Wellen> & Ähnliches")));
    EXPECT_TRUE(page.contains("<h1>&#60;Wellen&#62; &#38; &#196;hnliches</h1>")) << page.data();
    for (const char* fact : {"480 &#215; 204", "2 sizes up to 640 &#215; 272", "1:15", "1&#46;4 MB", "MOV",
                             "href='t_640&#46;mp4'"})
        EXPECT_TRUE(page.contains(fact)) << fact << page.data();
}

TEST(SitePages, title_leadsToNoFileInDoubleQuotes_thatIsNotAPage)
{
    const QByteArray page = SitePages(QString()).title(waves());
    QList<QByteArray> links;
    for (qsizetype at = page.indexOf("href=\""); at >= 0; at = page.indexOf("href=\"", at + 1))
        links += page.mid(at + 6, page.indexOf('"', at + 6) - at - 6);
    EXPECT_EQ(links, (QList<QByteArray>{"../site.css", "../"}));
}

TEST(SitePages, title_showsWhatStandsForAnyMovie_whenThereIsNoPoster)
{
    PublishedTitle title = waves();
    EXPECT_TRUE(SitePages(QString()).title(title).contains("src=\"poster&#46;jpg\""));
    title.hasPoster = false;
    EXPECT_FALSE(SitePages(QString()).title(title).contains("poster&#46;jpg"));
    EXPECT_TRUE(SitePages(QString()).title(title).contains("poster&#46;svg"));
}

TEST(SitePages, index_linksEveryTitle_andNamesTheFeedInSingleQuotes)
{
    PublishedTitle reef = waves(QStringLiteral("Reef"));
    reef.slug = QStringLiteral("reef");
    const QByteArray page = SitePages(QString()).index({reef, waves()});
    EXPECT_TRUE(page.contains("<html>"));
    EXPECT_TRUE(page.contains("href=\"reef/\""));
    EXPECT_TRUE(page.contains("href=\"waves/\""));
    EXPECT_TRUE(page.contains("href='feed.json'"));
    EXPECT_EQ(page.count(".json"), 1);
    EXPECT_TRUE(page.contains("2 titles, 4 movies"));
}

TEST(SitePages, feed_namesThePageOfEachTitle_withoutASpaceBeforeIt)
{
    const QByteArray feed =
        SitePages(QStringLiteral("/films")).feed({waves(QString::fromUtf8("Größe \"location\":\"x\""))});
    EXPECT_TRUE(feed.contains("\"location\":\"/films/trailers/waves/\"")) << feed.data();
    EXPECT_EQ(feed.count("\"location\":\""), 1);
    EXPECT_TRUE(std::ranges::all_of(feed, [](char letter) { return letter > 0; }));
    const QJsonObject entry = QJsonDocument::fromJson(feed).array()[0].toObject();
    EXPECT_EQ(entry[QStringLiteral("title")].toString(), QString::fromUtf8("Größe \"location\":\"x\""));
    EXPECT_EQ(entry[QStringLiteral("movies")].toArray()[1].toObject()[QStringLiteral("width")].toInt(), 640);
}

TEST(DurationText, hasHoursOnlyWhenThereAreSome)
{
    EXPECT_EQ(durationText(0), QString());
    EXPECT_EQ(durationText(0.2), QStringLiteral("0:01"));
    EXPECT_EQ(durationText(75.4), QStringLiteral("1:15"));
    EXPECT_EQ(durationText(59.6), QStringLiteral("1:00"));
    EXPECT_EQ(durationText(3725), QStringLiteral("1:02:05"));
    EXPECT_EQ(durationText(1e300), QStringLiteral("277:46:40"));
}

TEST(BytesText, isInDecimalUnits)
{
    EXPECT_EQ(bytesText(1'400'000), QStringLiteral("1.4 MB"));
    EXPECT_EQ(bytesText(900), QStringLiteral("900 bytes"));
}

} // namespace
} // namespace kestro
