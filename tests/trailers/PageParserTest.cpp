#include "trailers/PageParser.h"

#include "platform/base/Bounds.h"
#include "platform/base/Log.h"
#include "trailers/PageBase.h"

#include <QMap>
#include <QStringList>

#include <gtest/gtest.h>
#include <limits>

namespace kestro {

namespace {

using Links = PageParser::Links;

class PageParserTest : public ::testing::Test {
protected:
    Links links(std::string_view page) { return m_parser.linkListFromStringBase(page, m_base); }

    /// "URL, size, date", with "AC" for a package call's.
    std::vector<std::string> movies(std::string_view page)
    {
        std::vector<std::string> lines;
        for (const TrailerRecord& record : m_parser.movieListFromStringBase(page, m_base))
            lines.push_back(record.url.toStdString() + ", " + record.size->toStdString() + ", " +
                            record.date->toStdString() + (record.ac ? ", AC" : ""));
        return lines;
    }

    QMap<QString, QByteArray> m_feeds;
    std::vector<std::string> m_read;
    int m_looks = 0;
    int m_looksUntilStop = std::numeric_limits<int>::max();
    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
    PageBase m_base = *PageBase::from("http://h/trailers/studio/");
    PageParser m_parser{[this](const QUrl& feed) {
                            m_read.push_back(feed.toString().toStdString());
                            return m_feeds.value(feed.toString());
                        },
                        QStringLiteral("2008/03/14"), [this] { return ++m_looks <= m_looksUntilStop; }};
};

} // namespace

TEST_F(PageParserTest, links_areTheHrefsInPageOrder_doublesKept)
{
    EXPECT_EQ(links("<a href=\"b/\">b</a> <A HREF=\"a.html\">a</A><a Href=\"b/\"><link href=\"/c.css\">"),
              (Links{"http://h/trailers/studio/b/", "http://h/trailers/studio/a.html",
                     "http://h/trailers/studio/b/", "http://h/c.css"}));
}

TEST_F(PageParserTest, links_leaveOut_whatLeadsNowhere)
{
    EXPECT_EQ(
        links("href=\"#top\" href=\"?page=2\" href=\"\" href=\"http://o/\" href=\"ftp://h/\" href=\"a b\""),
        Links{});
}

TEST_F(PageParserTest, links_areNotSeen_withoutDoubleQuotesRightAfterTheName)
{
    EXPECT_EQ(links("href='a' href=b href= \"c\" href =\"d\" xhref=\"e\""),
              Links{"http://h/trailers/studio/e/"});
}

TEST_F(PageParserTest, links_goOnAfterTheClosingQuote_whateverTheLinkHolds)
{
    EXPECT_EQ(links("href=\"a'href=b\\\"c\" href=\"d\""), Links{"http://h/trailers/studio/d/"});
    EXPECT_EQ(links("href=\"href=\"a\""), Links{"http://h/trailers/studio/href=/"});
}

TEST_F(PageParserTest, links_areSkipped_whenTheyDoNotEnd)
{
    EXPECT_EQ(links("href=\"a\" href=\"b"), Links{"http://h/trailers/studio/a/"});
    EXPECT_EQ(links("href=\""), Links{});
}

TEST_F(PageParserTest, links_ofAFeedAreAdded_afterThoseOfThePage)
{
    m_feeds[QStringLiteral("http://h/trailers/feeds/new.json")] =
        R"([{"title":"A","location":"/trailers/a/"},{"LOCATION":"b.html"},{"location":"http:\/\/h\/c"},
            {"location" : "d"},{"location":"e/f)";
    EXPECT_EQ(
        links("load('../feeds/new.json') href=\"z\""),
        (Links{"http://h/trailers/studio/z/", "http://h/trailers/a/", "http://h/trailers/studio/b.html"}));
}

TEST_F(PageParserTest, links_ofAFeedAreResolved_againstThePage)
{
    m_feeds[QStringLiteral("http://h/feeds/x.JSON")] = R"({"location":"a"})";
    EXPECT_EQ(links("'/feeds/x.JSON'"), Links{"http://h/trailers/studio/a/"});
}

TEST_F(PageParserTest, feeds_areReadOnceAPage_andTheirLinksComeAtEachNaming)
{
    m_feeds[QStringLiteral("http://h/trailers/studio/a.json")] = R"("location":"x" "location":"y")";
    m_feeds[QStringLiteral("http://h/trailers/studio/b.json")] = R"("location":"z")";
    const std::string x = "http://h/trailers/studio/x/";
    const std::string y = "http://h/trailers/studio/y/";
    const std::string z = "http://h/trailers/studio/z/";
    EXPECT_EQ(links("'a.json' 'b.json?x' './a.json' 'none.json' 'none.json' 'b.json'"),
              (Links{x, y, z, x, y, z}));
    EXPECT_EQ(m_read,
              (std::vector<std::string>{"http://h/trailers/studio/a.json", "http://h/trailers/studio/b.json",
                                        "http://h/trailers/studio/none.json"}));
    m_read.clear();
    EXPECT_EQ(links("'a.json'"), (Links{x, y}));
    EXPECT_EQ(m_read.size(), 1U);
}

TEST_F(PageParserTest, feeds_areReadUpToTheBound_andThoseAgainThatWereRead)
{
    std::string page;
    for (int i = 0; i < 1000; ++i) {
        const QString name = QStringLiteral("%1.json").arg(i);
        m_feeds[QStringLiteral("http://h/trailers/studio/") + name] = R"("location":"x")";
        page += "'" + name.toStdString() + "' ";
    }
    EXPECT_EQ(links(page + "'0.json'").size(), std::size_t(Bounds::feedsOfAPage) + 1);
    EXPECT_EQ(m_read.size(), std::size_t(Bounds::feedsOfAPage));
    EXPECT_EQ(m_log,
              QStringList(QStringLiteral("More than 100 feeds on one page....http://h/trailers/studio/")));
}

TEST_F(PageParserTest, feeds_areReadNoFurther_whenAStopIsAskedFor)
{
    m_looksUntilStop = 2;
    links("'a.json' 'b.json' 'c.json' 'd.json'");
    EXPECT_EQ(m_read.size(), 2U);
    EXPECT_EQ(m_looks, 3);
}

// Each of these takes long: it ends after a share of it.
TEST_F(PageParserTest, hugePages_areLeftSoon_whenAStopIsAskedFor)
{
    constexpr std::size_t bytes = std::size_t(16) * 1024 * 1024;
    for (const char* text : {"'.json", "href=\"a\"", " ", "QT_WriteOBJECT_XHTML('a.mov',1,2)",
                             "AC.Quicktime.packageMovie('m','a.mov',{})", "QT_WriteOBJECT_XHTML(,)"}) {
        std::string page;
        while (page.size() < bytes)
            page += text;
        m_looks = 0;
        m_looksUntilStop = 0;
        EXPECT_LT(links(page).size(), 10'000U) << text;
        EXPECT_LT(movies(page).size(), 10'000U) << text;
        EXPECT_LE(m_looks, 2) << text;
        EXPECT_GE(m_looks, 1) << text;
        EXPECT_EQ(m_read.size(), 0U) << text;
    }
}

TEST_F(PageParserTest, pagesForPeople_areReadToTheirEnd_whateverIsAskedFor)
{
    std::string page;
    for (int i = 0; i < 1000; ++i)
        page += "<a href=\"a\">QT_WriteOBJECT_XHTML('a.mov',1,2)";
    m_looksUntilStop = 0;
    EXPECT_EQ(links(page).size(), 1000U);
    EXPECT_EQ(movies(page).size(), 1000U);
    EXPECT_EQ(m_looks, 0);
}

TEST_F(PageParserTest, everything_isFound_wherePiecesOfAHugePageMeet)
{
    constexpr std::size_t piece = std::size_t(1024) * 1024;
    for (std::size_t before = piece - 30; before <= piece + 1; ++before) {
        EXPECT_EQ(links(std::string(before, ' ') + "href=\"a/\"").size(), 1U) << before;
        EXPECT_EQ(movies(std::string(before, ' ') + "AC.Quicktime.packageMovie('m','a.mov',{})").size(), 1U)
            << before;
    }
}

TEST_F(PageParserTest, feeds_areNamedFromTheLastSingleQuote_inTheirStretch)
{
    links("it's 'x.json y.json' z.json'w.json");
    EXPECT_EQ(m_read, (std::vector<std::string>{"http://h/trailers/studio/x.json",
                                                "http://h/trailers/studio/w.json"}));
}

TEST_F(PageParserTest, feeds_areNotRead_whenTheNameIsNoURLOfTheSite)
{
    links("\"a.json\" 'b c.json 'http://o/d.json 'ftp://h/e.json '%f.json");
    EXPECT_EQ(m_read, std::vector<std::string>{});
}

TEST_F(PageParserTest, feeds_areNotRead_whenStepsUpLeadToAnotherHost)
{
    links("'../../../@other/a.json' '../../../.other/b.json' '../../../../c.json'");
    EXPECT_EQ(m_read, std::vector<std::string>{});
}

TEST_F(PageParserTest, putLinks_addsNothing_whenThereIsNoFeed)
{
    Links list = {"http://h/x"};
    m_parser.putLinksToFromJSONBase(list, QUrl(), m_base);
    m_parser.putLinksToFromJSONBase(list, QUrl(QStringLiteral("http://h/missing.json")), m_base);
    EXPECT_EQ(list, Links{"http://h/x"});
    EXPECT_EQ(m_read, std::vector<std::string>{"http://h/missing.json"});
}

TEST_F(PageParserTest, putLinks_extendsTheList_inTheFeedsOrder)
{
    m_feeds[QStringLiteral("http://h/f.json")] = R"("location":"b" "location":"a" "location":"b")";
    Links list = {"http://h/x"};
    m_parser.putLinksToFromJSONBase(list, QUrl(QStringLiteral("http://h/f.json")), m_base);
    EXPECT_EQ(list, (Links{"http://h/x", "http://h/trailers/studio/b/", "http://h/trailers/studio/a/",
                           "http://h/trailers/studio/b/"}));
}

TEST_F(PageParserTest, movies_areThoseOfObjectCallsFirst_eachWithTheDate)
{
    EXPECT_EQ(movies("AC.QuickTime.packageMovie('m','a.mov',{width:1,height:2}) "
                     "QT_WriteOBJECT_XHTML('b.mov','3','4') qt_writeobject_xhtml('c.mov','5','6') "
                     "ac.quicktime.packagemovie('m','d.mov',{})"),
              (std::vector<std::string>{"http://h/trailers/studio/b.mov, 3 x 4, 2008/03/14",
                                        "http://h/trailers/studio/c.mov, 5 x 6, 2008/03/14",
                                        "http://h/trailers/studio/a.mov, 1 x 2, 2008/03/14, AC",
                                        "http://h/trailers/studio/d.mov, --- x ---, 2008/03/14, AC"}));
}

TEST_F(PageParserTest, movies_endAtTheFirstBracket_whateverItIsPartOf)
{
    EXPECT_EQ(movies("QT_WriteOBJECT_XHTML('a.mov',f(1),'2')"), std::vector<std::string>{});
    EXPECT_EQ(
        movies(
            "QT_WriteOBJECT_XHTML('a.mov','1','2(QT_WriteOBJECT_XHTML(')QT_WriteOBJECT_XHTML('b.mov',3,4)"),
        (std::vector<std::string>{"http://h/trailers/studio/a.mov, 1 x 2(QT_WriteOBJECT_XHTML(, 2008/03/14",
                                  "http://h/trailers/studio/b.mov, 3 x 4, 2008/03/14"}));
}

TEST_F(PageParserTest, movies_skipACall_thatIsMalformed)
{
    EXPECT_EQ(movies("QT_WriteOBJECT_XHTML('a.mov') AC.Quicktime.packageMovie('a.mov') "
                     "QT_WriteOBJECT_XHTML('b.mov',1,2) QT_WriteOBJECT_XHTML('c.mov',1,2"),
              std::vector<std::string>{"http://h/trailers/studio/b.mov, 1 x 2, 2008/03/14"});
    EXPECT_EQ(movies("QT_WriteOBJECT_XHTML ('a.mov',1,2)"), std::vector<std::string>{});
}

TEST_F(PageParserTest, everything_isFound_amongZeroAndHighBytes)
{
    const std::string noise("\0\xff\xe9\0", 4);
    EXPECT_EQ(links(noise + "href=\"a\"" + noise), Links{"http://h/trailers/studio/a/"});
    EXPECT_EQ(movies(noise + "QT_WriteOBJECT_XHTML('" + noise + "','1','2')" + "QT_WriteOBJECT_XHTML(" +
                     "'a.mov',\xe9"
                     "1,2)"),
              std::vector<std::string>{"http://h/trailers/studio/a.mov, 1 x 2, 2008/03/14"});
}

TEST_F(PageParserTest, links_areBounded_whenAPageHoldsMillionsBelowALongBase)
{
    const auto length = std::size_t(Bounds::addressBytes) - 100;
    const PageBase base = *PageBase::from("http://h/" + std::string(length, 'x') + "/");
    std::string page;
    for (int i = 0; i < 10'000; ++i)
        page += "href=\"a\"";
    const Links list = m_parser.linkListFromStringBase(page, base);
    EXPECT_EQ(list.size(), std::size_t(Bounds::pageMemory) /
                               (length + std::string("http://h//a/").size() + sizeof(std::string)));
    ASSERT_EQ(m_log.size(), 1);
    EXPECT_TRUE(m_log.front().startsWith(QStringLiteral("Too much on one page....http://h/xxx")))
        << m_log.front().toStdString();
}

TEST_F(PageParserTest, links_areLeftOut_whenTheirAddressIsTooLong)
{
    const std::string fits(std::size_t(Bounds::addressBytes) - 100, 'x');
    EXPECT_EQ(links("href=\"" + fits + "\"").size(), 1U);
    EXPECT_EQ(links("href=\"" + fits + std::string(100, 'y') + "\" href=\"z/\""),
              Links{"http://h/trailers/studio/z/"});
}

TEST_F(PageParserTest, movies_areLeftOut_whenTheirCallIsTooLong)
{
    const auto call = [](std::size_t spaces) {
        return "QT_WriteOBJECT_XHTML('a.mov','1','2'" + std::string(spaces, ' ') + ")";
    };
    const auto bound = std::size_t(Bounds::callBytes);
    EXPECT_EQ(movies(call(bound - 15)).size(), 1U);
    EXPECT_EQ(movies(call(bound)).size(), 0U);
    EXPECT_EQ(movies(call(bound) + call(1)).size(), 1U);
}

// None of these pages, megabytes of beginnings without an end, may cost more than a few passes over it:
// searching for each end anew would take hours.
TEST_F(PageParserTest, hostilePages_areReadInOnePass_whenNothingEnds)
{
    const auto repeated = [](std::string_view text, int count) {
        std::string page;
        for (int i = 0; i < count; ++i)
            page += text;
        return page;
    };
    for (const char* text : {".json", "QT_WriteOBJECT_XHTML(", "AC.Quicktime.packageMovie(", "'", "(", "_",
                             "{", "href=", "href='", "QT_WriteOBJECT_XHTML(,'", "%", "a"}) {
        const std::string page = repeated(text, 1'000'000);
        EXPECT_EQ(links(page), Links{}) << text;
        EXPECT_EQ(movies(page), std::vector<std::string>{}) << text;
    }
    EXPECT_EQ(movies(repeated("QT_WriteOBJECT_XHTML(", 200'000) + repeated(",", 1'000'000) + ")"),
              std::vector<std::string>{});
    EXPECT_EQ(links(repeated("href=\"", 1'000'001)), Links(500'000, "http://h/trailers/studio/href=/"));
    EXPECT_EQ(m_read, std::vector<std::string>{});
}

} // namespace kestro
