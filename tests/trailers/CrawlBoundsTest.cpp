#include "platform/base/Clock.h"
#include "trailers/MemoryFetch.h"
#include "trailers/ScanCrawler.h"
#include "trailers/TrailerListFixture.h"

namespace kestro {

namespace {

const QString start = QStringLiteral("http://h/trailers/0/");

/// Page N leads to page N + 1 and has a movie, without end.
class EndlessSite final : public Fetch {
public:
    FetchResult fetch(const QUrl& url) override
    {
        const int number = url.path().section(u'/', 2, 2).toInt();
        ++pages;
        if (onFetch) onFetch();
        const QByteArray page = "<html>AC.Quicktime.packageMovie('m','/m" + QByteArray::number(number) +
                                ".mov',{})<a href=\"/trailers/" + QByteArray::number(number + 1) + "/\">" +
                                more;
        m_received += page.size();
        return page;
    }
    void cancel() override {}
    void allow() override {}
    [[nodiscard]] qint64 received() const override { return m_received; }

    int pages = 0;
    QByteArray more;
    std::function<void()> onFetch;

private:
    qint64 m_received = 0;
};

} // namespace

class CrawlBoundsTest : public TrailerListFixture {
protected:
    CrawlBoundsTest()
    {
        m_limits.pages = 50; // so that a test of another bound ends where that is broken
        m_list.load();
    }

    /// Crawls under m_limits; answers the bound that it came to.
    QString crawl()
    {
        ScanCrawler crawler(m_site, m_list, m_home.path(), {[] { return true; }, [] {}},
                            CrawlBudget(m_limits, m_clock));
        crawler.setSiteHost("h");
        EXPECT_TRUE(crawler.scanURLProgress(start.toStdString(), false));
        return crawler.bound();
    }

    CrawlLimits m_limits;
    EndlessSite m_site;
    ManualClock m_clock;
    TrailerList m_list{m_home.path(), seed()};
};

TEST_F(CrawlBoundsTest, crawl_endsWithAllThatItHas_whenThePagesAreTooMany)
{
    m_limits.pages = 10;
    EXPECT_EQ(crawl(), QStringLiteral("10 pages"));
    EXPECT_EQ(m_site.pages, 10);
    EXPECT_EQ(m_list.count(), 10);
    EXPECT_EQ(m_list.passedList().size(), 10);
}

TEST_F(CrawlBoundsTest, crawl_endsWithAllThatItHas_whenTheBytesAreTooMany)
{
    m_site.more = QByteArray(1000, ' ');
    m_limits.bytes = 5000;
    EXPECT_EQ(crawl(), QStringLiteral("5000 bytes"));
    EXPECT_EQ(m_site.pages, 5);
    EXPECT_EQ(m_list.count(), 5);
}

TEST_F(CrawlBoundsTest, crawl_countsItsOwnBytesOnly_whenItFollowsAnother)
{
    m_site.more = QByteArray(1000, ' ');
    m_limits.bytes = 5000;
    EXPECT_FALSE(crawl().isEmpty());
    m_list.clear();
    EXPECT_FALSE(crawl().isEmpty());
    EXPECT_EQ(m_list.count(), 5);
}

TEST_F(CrawlBoundsTest, crawl_endsWithAllThatItHas_whenItsTimeIsOver)
{
    m_site.onFetch = [this] { m_clock.advance(10); };
    m_limits.seconds = 60;
    EXPECT_EQ(crawl(), QStringLiteral("60 seconds"));
    EXPECT_EQ(m_site.pages, 6);
    EXPECT_EQ(m_list.count(), 6);
}

TEST_F(CrawlBoundsTest, crawl_goesNoDeeper_butOnWithOtherPages)
{
    m_limits.depth = 3;
    m_site.more = "<a href=\"/trailers/40/\">";
    EXPECT_EQ(crawl(), QStringLiteral("3 links down"));
    EXPECT_TRUE(m_list.isPassed("http://h/trailers/3/"));
    EXPECT_FALSE(m_list.isPassed("http://h/trailers/4/"));
    EXPECT_TRUE(m_list.isPassed("http://h/trailers/40/")); // from page 2, one link less far down
    EXPECT_FALSE(m_list.isPassed("http://h/trailers/41/"));
}

TEST_F(CrawlBoundsTest, crawl_endsWithAllThatItHas_whenOpenPagesTakeTooMuchMemory)
{
    for (int i = 0; i < 100; ++i)
        m_site.more += "<a href=\"/trailers/x" + QByteArray::number(i) + "/\">";
    m_limits.memory = 20'000;
    EXPECT_EQ(crawl(), QStringLiteral("20000 bytes of memory for open pages"));
    EXPECT_LT(m_site.pages, 20);
    EXPECT_EQ(m_list.count(), m_site.pages);
}

TEST_F(CrawlBoundsTest, crawl_goesOn_whenItIsLinksToVisitedPagesThatTakeTheMemory)
{
    for (int i = 0; i < 200; ++i) {
        m_site.more += "<a href=\"/trailers/x" + QByteArray::number(i) + "/\">";
        m_list.addPassed("http://h/trailers/x" + std::to_string(i) + "/");
    }
    m_limits.memory = 60'000;
    EXPECT_EQ(crawl(), QStringLiteral("50 pages"));
    EXPECT_EQ(m_list.count(), 50);
}

TEST_F(CrawlBoundsTest, crawl_leavesMoviesOut_whenOnePageHasMoreThanThereIsMemoryFor)
{
    for (int i = 0; i < 1000; ++i)
        m_site.more += "AC.Quicktime.packageMovie('m','x" + QByteArray::number(i) + ".mov',{})";
    m_limits.memory = 20'000;
    EXPECT_FALSE(crawl().isEmpty());
    EXPECT_EQ(m_site.pages, 1);
    EXPECT_GT(m_list.count(), 10);
    EXPECT_LT(m_list.count(), 1000);
}

TEST_F(CrawlBoundsTest, crawl_readsNoFurtherFeed_whenItIsOver)
{
    m_site.more = "'/a.json' '/b.json' '/c.json'";
    m_limits.bytes = 1;
    EXPECT_FALSE(crawl().isEmpty());
    EXPECT_EQ(m_site.pages, 1);
}

TEST_F(CrawlBoundsTest, crawl_endsAndSaysSo_whenTheListIsFull)
{
    TrailerRecord large = record("http://h/large.mov");
    large.size = QString(Bounds::listBytes - 1000, u'x');
    m_list.store({large});
    EXPECT_EQ(crawl(), QStringLiteral("the list of trailers is full; clearing it makes room"));
    EXPECT_LT(m_site.pages, 15);
    EXPECT_TRUE(m_list.saveList());
}

TEST_F(CrawlBoundsTest, crawl_namesNoBound_whenAllThatIsLeftWasVisited)
{
    m_limits.pages = 2;
    m_site.more = "<a href=\"/trailers/0/\">";
    m_list.addPassed("http://h/trailers/2/");
    EXPECT_EQ(crawl(), QString());
    EXPECT_EQ(m_site.pages, 2);
}

TEST_F(CrawlBoundsTest, crawl_namesNoBound_whenItComesToNone)
{
    for (int number = 2; number < 5; ++number)
        m_list.addPassed("http://h/trailers/" + std::to_string(number) + "/");
    EXPECT_EQ(crawl(), QString());
    EXPECT_EQ(m_site.pages, 2);
}

} // namespace kestro
