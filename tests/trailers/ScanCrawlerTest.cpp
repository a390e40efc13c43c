#include "trailers/PageBase.h"
#include "trailers/ScanCrawlerFixture.h"

#include <QProcess>

namespace kestro {

namespace {

QByteArray gzipped(const QByteArray& text, const QStringList& words = {QStringLiteral("-nc")})
{
    QProcess gzip;
    gzip.start(QStringLiteral("gzip"), words);
    gzip.write(text);
    gzip.closeWriteChannel();
    return gzip.waitForFinished() ? gzip.readAllStandardOutput() : QByteArray();
}

/// Keeps what it is told.
class NotingWatcher final : public CrawlWatcher {
public:
    void pageBegins(const std::string&, const CrawlCounts& counts) override { queues.append(counts.queue); }
    void pageEnds(const std::string&, const QString& outcome) override { outcomes.append(outcome); }

    QList<qsizetype> queues; ///< as each page began
    QStringList outcomes;    ///< in the order in which the pages were read
};

} // namespace

TEST_F(ScanCrawlerTest, scan_goesDepthFirstInPageOrder_whenPagesLinkOn)
{
    page("/trailers/", linkTo("a/") + linkTo("b/"));
    page("/trailers/a/", linkTo("a1/") + linkTo("a2/"));
    page("/trailers/a/a1/", linkTo("/trailers/b/"));
    page("/trailers/a/a2/", {});
    page("/trailers/b/", linkTo("b1/"));
    page("/trailers/b/b1/", {});
    EXPECT_TRUE(scan());
    EXPECT_EQ(asked(), (QStringList{QStringLiteral("/trailers/"), QStringLiteral("/trailers/a/"),
                                    QStringLiteral("/trailers/a/a1/"), QStringLiteral("/trailers/b/"),
                                    QStringLiteral("/trailers/b/b1/"), QStringLiteral("/trailers/a/a2/")}));
    EXPECT_EQ(m_crawler.pageCount(), 6);
}

TEST_F(ScanCrawlerTest, scan_fetchesAPageOnce_whenItIsLinkedManyTimesAndInCircles)
{
    page("/trailers/", linkTo("a/") + linkTo("a/") + linkTo("/trailers/") + linkTo("a/"));
    page("/trailers/a/", linkTo("../") + linkTo("../a/"));
    EXPECT_TRUE(scan());
    EXPECT_EQ(asked(), (QStringList{QStringLiteral("/trailers/"), QStringLiteral("/trailers/a/")}));
}

TEST_F(ScanCrawlerTest, scan_staysOnTheSite_whenLinksLeadElsewhere)
{
    page("/trailers/", linkTo("http://other/trailers/") + linkTo("/elsewhere/") + linkTo("look.css") +
                           linkTo("https://h/trailers/x/") + linkTo("clip.mov") + linkTo("/trailers2/"));
    EXPECT_TRUE(scan());
    EXPECT_EQ(asked(), (QStringList{QStringLiteral("/trailers/"), QStringLiteral("/trailers/clip.mov"),
                                    QStringLiteral("/trailers2/")}));
}

TEST_F(ScanCrawlerTest, scan_storesAPagesMovies_afterThoseBelowIt)
{
    page("/trailers/", linkTo("a/") + movieCall("top.mov"));
    page("/trailers/a/", movieCall("a.mov"));
    m_fetch.setHandler([this](const QString& url) {
        if (url.endsWith(u"/a/")) {
            EXPECT_EQ(m_list.count(), 0);
        }
    });
    EXPECT_TRUE(scan("/trailers/", true));
    EXPECT_TRUE(hasMovie("/trailers/top.mov"));
    EXPECT_EQ(m_list.record(full("/trailers/a/a.mov"))->size, QStringLiteral("480 x 204"));
    EXPECT_EQ(m_list.record(full("/trailers/a/a.mov"))->date, curDateStr(m_clock));
    EXPECT_EQ(m_reloads, 2);
}

TEST_F(ScanCrawlerTest, scan_saysNothing_withoutProgress)
{
    page("/trailers/", {});
    EXPECT_TRUE(scan());
    EXPECT_EQ(m_reloads, 0);
}

TEST_F(ScanCrawlerTest, scan_marksPagesBeforeTheFetchAndForGood_whenTheyFail)
{
    page("/trailers/", linkTo("gone/") + linkTo("short/"));
    raw("/trailers/short/", "1234");
    m_fetch.setHandler([this](const QString& url) { EXPECT_TRUE(m_list.isPassed(url.toStdString())); });
    EXPECT_TRUE(scan());
    EXPECT_TRUE(isPassed("/trailers/gone/"));
    EXPECT_TRUE(isPassed("/trailers/short/"));
    EXPECT_TRUE(m_log.isEmpty());
    m_fetch.forgetAsked();
    EXPECT_TRUE(scan());
    EXPECT_EQ(asked(), QStringList(QStringLiteral("/trailers/")));
}

TEST_F(ScanCrawlerTest, scan_logsALine_whenAPageOrAFeedIsOverALimit)
{
    page("/trailers/", linkTo("large/") + linkTo("gone/") + "feed('large.json')");
    m_fetch.putTooLarge(full("/trailers/large/"));
    m_fetch.putTooLarge(full("/trailers/large.json"));
    EXPECT_TRUE(scan());
    EXPECT_EQ(m_log, (QStringList{QStringLiteral("Cannot read http://h/trailers/large.json: too large"),
                                  QStringLiteral("Cannot read http://h/trailers/large/: too large")}));
    EXPECT_TRUE(isPassed("/trailers/large/"));
}

TEST_F(ScanCrawlerTest, scan_leavesTheLineToItsOwner_whenTheStartPageIsOverALimit)
{
    m_fetch.putTooLarge(full("/trailers/"));
    EXPECT_FALSE(scan());
    EXPECT_EQ(m_crawler.startFailure(), QStringLiteral("too large"));
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(ScanCrawlerTest, scan_answersWhy_whenTheStartPageCannotBeRead)
{
    EXPECT_FALSE(scan());
    EXPECT_EQ(m_crawler.startFailure(), QStringLiteral("no such page"));
    EXPECT_EQ(m_crawler.pageCount(), 0);
    EXPECT_FALSE(m_list.scanedURLList());
}

TEST_F(ScanCrawlerTest, scan_followsWhatWasVisited_whenTheListIsClearedMeanwhile)
{
    page("/trailers/", linkTo("old/") + linkTo("a/") + linkTo("old/") + linkTo("b/"));
    page("/trailers/old/", movieCall("old.mov"));
    page("/trailers/a/", {});
    page("/trailers/b/", movieCall("b.mov"));
    m_list.addPassed("http://h/trailers/b/");
    m_fetch.setHandler([this](const QString& url) {
        if (url.endsWith(u"/a/")) m_list.clear();
    });
    EXPECT_TRUE(scan());
    EXPECT_TRUE(hasMovie("/trailers/b/b.mov"));
    EXPECT_EQ(asked().count(QStringLiteral("/trailers/b/")), 1);
}

TEST_F(ScanCrawlerTest, scan_countsEachLinkOnce_thatIsStillToBeFollowed)
{
    page("/trailers/", linkTo("a/") + linkTo("b/") + linkTo("old/"));
    page("/trailers/a/", linkTo("/trailers/b/") + linkTo("a1/"));
    page("/trailers/a/a1/", {});
    page("/trailers/b/", {});
    m_list.addPassed("http://h/trailers/old/");
    NotingWatcher watcher;
    m_crawler.setWatcher(&watcher);
    EXPECT_TRUE(scan());
    EXPECT_EQ(watcher.queues, (QList<qsizetype>{0, 1, 1, 0}));
    EXPECT_EQ(watcher.outcomes.front(), QStringLiteral("2 links to follow, 0 movies"));
}

TEST_F(ScanCrawlerTest, scan_readsPackedPages_whenTheirHeaderHasNoFlags)
{
    raw("/trailers/", gzipped("<html>" + linkTo("a/")));
    page("/trailers/a/", {});
    EXPECT_TRUE(scan());
    EXPECT_TRUE(asked().contains(QStringLiteral("/trailers/a/")));
    EXPECT_TRUE(QDir(scratchFolder()).isEmpty());
}

TEST_F(ScanCrawlerTest, scan_takesPackedBytesAsTheyAre_whenTheirHeaderHasFlags)
{
    QFile named(m_home.filePath(QStringLiteral("page")));
    ASSERT_TRUE(named.open(QIODevice::WriteOnly));
    named.write("<html>" + linkTo("a/"));
    named.close();
    raw("/trailers/", gzipped({}, {QStringLiteral("-c"), named.fileName()}));
    scan();
    EXPECT_EQ(asked(), QStringList(QStringLiteral("/trailers/")));
    EXPECT_FALSE(QFile::exists(scratchFolder()));
}

TEST_F(ScanCrawlerTest, scan_passesOverAPage_whenItCannotBeUnpacked)
{
    page("/trailers/", linkTo("good/") + linkTo("broken/"));
    raw("/trailers/good/", gzipped("<html>" + linkTo("x/")));
    raw("/trailers/broken/", gzipped("<html>" + linkTo("y/")).chopped(9));
    EXPECT_TRUE(scan());
    EXPECT_EQ(asked().size(), 4);
    EXPECT_EQ(m_crawler.pageCount(), 2);
    ASSERT_EQ(m_log.size(), 3);
    EXPECT_TRUE(m_log[0].startsWith(QStringLiteral("Cannot unpack http://h/trailers/broken/")));
    EXPECT_EQ(m_log[1], QStringLiteral("No Contents (retry)....http://h/trailers/broken/"));
    EXPECT_EQ(m_log[2], QStringLiteral("No Contents (return NO)....http://h/trailers/broken/"));
}

TEST_F(ScanCrawlerTest, scan_readsHighBytes_whenTheStartPageIsHtml)
{
    page("/trailers/", "\xe4" + linkTo("a/"));
    page("/trailers/a/", "\xf6" + movieCall("a.mov"));
    EXPECT_TRUE(scan());
    EXPECT_TRUE(hasMovie("/trailers/a/a.mov"));
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(ScanCrawlerTest, scan_readsAsciiOnlyForGood_whenAStartPageIsNoHtml)
{
    raw("/trailers/", "plain" + linkTo("a/") + linkTo("b/"));
    page("/trailers/a/", "\xf6" + movieCall("a.mov"));
    raw("/trailers/b/", "no tag here" + movieCall("b.mov"));
    EXPECT_TRUE(scan());
    EXPECT_EQ(m_log, (QStringList{QStringLiteral("Encoding Changed... 1"),
                                  QStringLiteral("No Contents (retry)....http://h/trailers/a/"),
                                  QStringLiteral("No Contents (return NO)....http://h/trailers/a/")}));
    EXPECT_FALSE(hasMovie("/trailers/a/a.mov"));
    EXPECT_TRUE(hasMovie("/trailers/b/b.mov"));

    m_list.clear();
    m_log.clear();
    page("/trailers/", linkTo("a/"));
    EXPECT_TRUE(scan());
    EXPECT_FALSE(hasMovie("/trailers/a/a.mov"));
    EXPECT_EQ(m_log.size(), 2);
}

TEST_F(ScanCrawlerTest, scan_failsWithLines_whenTheStartPageIsNeitherHtmlNorAscii)
{
    raw("/trailers/", "plain\xff");
    EXPECT_FALSE(scan());
    EXPECT_EQ(m_log, (QStringList{QStringLiteral("Encoding Changed... 1"),
                                  QStringLiteral("No Contents (retry)....http://h/trailers/"),
                                  QStringLiteral("No Contents (return NO)....http://h/trailers/")}));
}

TEST_F(ScanCrawlerTest, scan_findsTheTag_whenItIsWrittenInCapitals)
{
    raw("/trailers/", "<HTML>\xe4");
    EXPECT_TRUE(scan());
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(ScanCrawlerTest, scan_followsFeeds_whenAPageNamesThem)
{
    page("/trailers/", "feed('list.json')");
    page("/trailers/a/", "feed('../list.json')");
    raw("/trailers/list.json", R"({"location":"/trailers/a/"})");
    EXPECT_TRUE(scan());
    EXPECT_EQ(asked(), (QStringList{QStringLiteral("/trailers/"), QStringLiteral("/trailers/list.json"),
                                    QStringLiteral("/trailers/a/"), QStringLiteral("/trailers/list.json")}));
    EXPECT_FALSE(isPassed("/trailers/list.json"));
}

TEST_F(ScanCrawlerTest, scan_keepsThePort_whenTheSiteHasOne)
{
    m_fetch.put(QStringLiteral("http://h:8080/trailers/"),
                "<html>" + linkTo("a/") + linkTo("http://h:9/trailers/b/"));
    m_fetch.put(QStringLiteral("http://h:8080/trailers/a/"), "<html>" + movieCall("/trailers/a.mov"));
    for (const char* host : {"h", "h:8080"}) {
        m_list.clear();
        m_crawler.setSiteHost(host);
        EXPECT_TRUE(m_crawler.scanURLProgress("http://h:8080/trailers/", false));
        EXPECT_TRUE(m_list.record(QStringLiteral("http://h:8080/trailers/a.mov"))) << host;
    }
    m_list.clear();
    m_crawler.setSiteHost("h:9");
    EXPECT_TRUE(m_crawler.scanURLProgress("http://h:8080/trailers/", false));
    EXPECT_EQ(m_list.count(), 0);
}

TEST_F(ScanCrawlerTest, scan_comesToTheEnd_whenPagesLeadOnAndOnDown)
{
    constexpr int depth = 100000;
    const auto path = [](int i) { return "/trailers/" + QByteArray::number(i) + "/"; };
    for (int i = 0; i < depth; ++i)
        page(path(i), linkTo(path(i + 1)));
    EXPECT_TRUE(scan("/trailers/0/"));
    EXPECT_EQ(m_crawler.pageCount(), depth);
    EXPECT_TRUE(isPassed(path(depth)));
}

TEST_F(ScanCrawlerTest, scan_takesAwayWhatAKilledOneLeft_whenItBegins)
{
    const QString left = scratchFolder() + QStringLiteral("/kestro-scratch-abcdef");
    ASSERT_TRUE(QDir().mkpath(left));
    ASSERT_TRUE(QFile::setPermissions(left, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QFile file(left + QStringLiteral("/__tmp__"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    page("/trailers/", {});
    EXPECT_TRUE(scan());
    EXPECT_TRUE(QDir(scratchFolder()).isEmpty());
}

TEST_F(ScanCrawlerTest, baseOfPage_isItsFolder_whateverItsForm)
{
    const std::pair<const char*, const char*> cases[] = {
        {"http://h/trailers/", "http://h/trailers/"},
        {"http://h/trailers", "http://h/trailers/"},
        {"http://h/trailers/a.html", "http://h/trailers/"},
        {"http://h/trailers/a.html?x=1#y", "http://h/trailers/"},
        {"http://h/a.html", "http://h/"},
        {"http://h/trailers/v1.0/", "http://h/trailers/"},
        {"http://h:81/trailers/a", "http://h:81/trailers/a/"},
        {"http://h", "http://h/"},
        {"http://h/", "http://h/"},
    };
    for (const auto& [url, base] : cases)
        EXPECT_EQ(baseOfPage(url)->absoluteString(), base) << url;
    for (const char* url : {"", "trailers/", "/trailers/", "http://", "http:///a", "mailto:a"})
        EXPECT_FALSE(baseOfPage(url)) << url;
}

} // namespace kestro
