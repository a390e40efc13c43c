#include "trailers/ScanCrawlerFixture.h"

namespace kestro {

TEST_F(ScanCrawlerTest, scan_leavesOpenPagesUnstored_whenItIsStopped)
{
    page("/trailers/", linkTo("a/") + linkTo("b/") + movieCall("top.mov"));
    page("/trailers/a/", linkTo("a1/") + linkTo("a2/") + movieCall("a.mov"));
    page("/trailers/a/a1/", movieCall("a1.mov"));
    page("/trailers/a/a2/", linkTo("deep/") + movieCall("a2.mov"));
    m_fetch.setHandler([this](const QString& url) {
        if (url.endsWith(u"/a2/")) m_isWanted = false;
    });
    EXPECT_FALSE(scan());
    EXPECT_TRUE(hasMovie("/trailers/a/a1/a1.mov"));
    EXPECT_FALSE(hasMovie("/trailers/a/a2/a2.mov"));
    EXPECT_FALSE(hasMovie("/trailers/top.mov"));
    EXPECT_EQ(asked().back(), QStringLiteral("/trailers/a/a2/"));
    EXPECT_FALSE(isPassed("/trailers/b/"));
}

TEST_F(ScanCrawlerTest, scan_countsAPageAsUnvisited_whenAStopCutsItsFetchShort)
{
    page("/trailers/", linkTo("a/") + linkTo("b/"));
    page("/trailers/a/", {});
    m_fetch.setHandler([this](const QString& url) {
        if (!url.endsWith(u"/a/")) return;
        m_isWanted = false;
        m_fetch.cancel();
    });
    EXPECT_FALSE(scan());
    EXPECT_TRUE(isPassed("/trailers/"));
    EXPECT_FALSE(isPassed("/trailers/a/"));

    m_fetch.setHandler({});
    m_fetch.allow();
    m_isWanted = true;
    EXPECT_TRUE(scan());
    EXPECT_TRUE(isPassed("/trailers/a/"));
}

TEST_F(ScanCrawlerTest, scan_leavesAPageVisited_whenItWasBeforeAndAStopCutsItsFetchShort)
{
    page("/trailers/", {});
    EXPECT_TRUE(scan());
    m_fetch.setHandler([this](const QString&) {
        m_isWanted = false;
        m_fetch.cancel();
    });
    EXPECT_FALSE(scan());
    EXPECT_TRUE(isPassed("/trailers/"));
}

TEST_F(ScanCrawlerTest, scan_leavesAPageVisited_whenItIsReadAsTheStopComes)
{
    page("/trailers/", linkTo("a/"));
    page("/trailers/a/", linkTo("b/"));
    m_fetch.setHandler([this](const QString& url) {
        if (url.endsWith(u"/a/")) m_isWanted = false;
    });
    EXPECT_TRUE(scan());
    EXPECT_TRUE(isPassed("/trailers/a/"));
}

// The question whether to go on comes before each link and at no other place.
TEST_F(ScanCrawlerTest, scan_storesPagesWithoutFurtherLinks_whenItIsStopped)
{
    page("/trailers/", linkTo("a/") + movieCall("top.mov"));
    page("/trailers/a/", movieCall("a.mov"));
    m_fetch.setHandler([this](const QString& url) {
        if (url.endsWith(u"/a/")) m_isWanted = false;
    });
    EXPECT_TRUE(scan());
    EXPECT_TRUE(hasMovie("/trailers/a/a.mov"));
    EXPECT_TRUE(hasMovie("/trailers/top.mov"));
}

TEST_F(ScanCrawlerTest, scan_storesNothingOfAPage_whenItIsStoppedBeforeALinkThatLeadsNowhere)
{
    for (const char* last : {"/elsewhere/", "a/", "/trailers/"}) {
        m_list.clear();
        m_isWanted = true;
        page("/trailers/", linkTo("a/") + linkTo(last) + movieCall("top.mov"));
        page("/trailers/a/", movieCall("a.mov"));
        m_fetch.setHandler([this](const QString& url) {
            if (url.endsWith(u"/a/")) m_isWanted = false;
        });
        EXPECT_FALSE(scan()) << last;
        EXPECT_FALSE(hasMovie("/trailers/top.mov")) << last;
        EXPECT_TRUE(hasMovie("/trailers/a/a.mov")) << last;
    }
}

// The page is cut off within its calls: what was found is not the whole of it.
TEST_F(ScanCrawlerTest, scan_storesNothingOfAPage_whenItIsStoppedWithinIt)
{
    page("/trailers/", linkTo("a/") + movieCall("top.mov"));
    QByteArray large = movieCall("a.mov");
    while (large.size() < 3 * 1024 * 1024)
        large += "href=\"x\"";
    page("/trailers/a/", large);
    m_fetch.setHandler([this](const QString& url) {
        if (url.endsWith(u"/a/")) m_isWanted = false;
    });
    scan();
    EXPECT_FALSE(hasMovie("/trailers/a/a.mov"));
}

} // namespace kestro
