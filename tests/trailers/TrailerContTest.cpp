#include "trailers/TrailerCont.h"

#include "platform/base/ConfigurationFile.h"
#include "support/WaitUntil.h"
#include "trailers/ListLock.h"
#include "trailers/MemoryFetch.h"
#include "trailers/TrailerListFixture.h"

#include <QCoreApplication>

namespace kestro {

namespace {

const QString startUrl = QStringLiteral("http://h/trailers/");
const QString innerUrl = QStringLiteral("http://h/trailers/a/");
const QString movieUrl = QStringLiteral("http://h/trailers/a/t.mov");

/// Counts what the controller tells, and on which thread.
class CountingObserver final : public TrailerObserver {
public:
    void reloadTableView() override
    {
        ++reloads;
        isOnMain = isOnMain && std::this_thread::get_id() == m_main;
    }
    void stopProgress() override
    {
        ++stops;
        isOnMain = isOnMain && std::this_thread::get_id() == m_main;
    }

    int reloads = 0;
    int stops = 0;
    bool isOnMain = true;

private:
    std::thread::id m_main = std::this_thread::get_id();
};

} // namespace

class TrailerContTest : public TrailerListFixture {
protected:
    TrailerContTest()
        : m_application(m_count, m_words)
    {
        useLimits(Bounds::crawlPages);
    }
    ~TrailerContTest() override { m_controller.reset(); }

    void useLimits(int pages)
    {
        m_controller.reset();
        auto fetch = std::make_unique<MemoryFetch>();
        m_fetch = fetch.get();
        m_fetch->put(startUrl, "<html><a href=\"a/\"><a href=\"b/\">");
        m_fetch->put(innerUrl, "<html>AC.Quicktime.packageMovie('m','t.mov',{width:480})");
        m_fetch->put(QStringLiteral("http://h/trailers/b/"), "<html>");
        m_controller = std::make_unique<TrailerCont>(TrailerCont::Parts{
            m_home.path(), seed(), m_home.path(), {startUrl, {}}, std::move(fetch), {pages}});
        m_controller->setObserver(&m_observer);
    }

    [[nodiscard]] bool waitForEnd()
    {
        return waitUntil([this] { return !m_controller->onThreading() && !m_controller->inThreading(); });
    }

    int m_count = 1;
    char m_name[5] = "test";
    char* m_words[2] = {m_name, nullptr};
    QCoreApplication m_application;
    CountingObserver m_observer;
    MemoryFetch* m_fetch = nullptr;
    std::unique_ptr<TrailerCont> m_controller;
};

TEST_F(TrailerContTest, scanLatest_findsAndSavesWithoutAWord_whenItRunsToItsEnd)
{
    m_controller->scanLatest();
    ASSERT_TRUE(waitForEnd());
    m_controller->stopThreading();
    EXPECT_EQ(m_controller->lastTrailers(6, 480, {}), QList<QUrl>{QUrl(movieUrl)});
    EXPECT_EQ(m_log, (QStringList{QStringLiteral("Thread started."), QStringLiteral("Thread exited.")}));
    EXPECT_EQ(m_observer.stops, 0);
    EXPECT_EQ(m_observer.reloads, 0);
    EXPECT_EQ(m_controller->lastEnd().kind, ScanEnd::Kind::Whole);

    TrailerList saved(m_home.path(), seed());
    saved.load();
    EXPECT_TRUE(saved.record(movieUrl));
    EXPECT_EQ(saved.passedList().size(), 3);
}

TEST_F(TrailerContTest, scanLatest_saysSoAndSavesWhatItHas_whenItComesToABound)
{
    useLimits(2);
    m_controller->scanLatest();
    ASSERT_TRUE(waitForEnd());
    m_controller->stopThreading();
    EXPECT_EQ(m_controller->lastEnd().kind, ScanEnd::Kind::Bounded);
    EXPECT_EQ(m_controller->lastEnd().pages, 2);
    EXPECT_EQ(m_log, (QStringList{QStringLiteral("Thread started."),
                                  QStringLiteral("The crawl came to a bound: 2 pages."),
                                  QStringLiteral("Thread exited.")}));
    TrailerList saved(m_home.path(), seed());
    saved.load();
    EXPECT_TRUE(saved.record(movieUrl));
}

TEST_F(TrailerContTest, scan_saysSoAndKeepsWhatItHas_whenItComesToABound)
{
    useLimits(2);
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_EQ(m_controller->lastEnd().kind, ScanEnd::Kind::Bounded);
    EXPECT_TRUE(m_log.contains(QStringLiteral("The crawl came to a bound: 2 pages.")));
    EXPECT_EQ(m_controller->list().count(), 1);
}

TEST_F(TrailerContTest, scanLatest_doesNothing_whenACrawlIsWantedAlready)
{
    m_fetch->setHanging(startUrl);
    m_controller->scanLatest();
    ASSERT_TRUE(m_fetch->waitForAsked(startUrl));
    EXPECT_TRUE(m_controller->inThreading());
    m_controller->scanLatest();
    m_controller->stopThreading();
    EXPECT_EQ(m_fetch->asked(), QStringList(startUrl));
}

TEST_F(TrailerContTest, scanLatest_saysOnceThatThereIsNoSite_whenNoStartIsSet)
{
    m_controller->setSite({});
    m_controller->scanLatest();
    m_controller->scanLatest();
    EXPECT_FALSE(m_controller->onThreading());
    ASSERT_EQ(m_log.size(), 1);
    EXPECT_TRUE(m_log.front().contains(configurationFile()));
}

TEST_F(TrailerContTest, scanLatest_endsWithALine_whenTheStartIsNoAddress)
{
    for (const char* start : {"trailers/", "http://", "mailto:a@b", "h t t p://h/"}) {
        m_log.clear();
        m_controller->setSite({QLatin1String(start), {}});
        m_controller->scanLatest();
        ASSERT_TRUE(waitForEnd());
        m_controller->stopThreading();
        EXPECT_EQ(m_log,
                  QStringList(QStringLiteral("No address of a page: \"%1\"").arg(QLatin1String(start))));
    }
    EXPECT_TRUE(m_fetch->asked().isEmpty());
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(TrailerContTest, scanLatest_leavesTheCrawlOut_whenAnotherProcessCrawls)
{
    auto other = ListLock::takeToCrawl(path());
    ASSERT_TRUE(other.isOk());
    m_controller->scanLatest();
    ASSERT_TRUE(waitForEnd());
    m_controller->stopThreading();
    EXPECT_EQ(m_log, QStringList(QStringLiteral("Another crawl is running")));
    EXPECT_TRUE(m_fetch->asked().isEmpty());

    other = LockFault{};
    m_controller->scanLatest();
    ASSERT_TRUE(waitForEnd());
    m_controller->stopThreading();
    EXPECT_EQ(m_fetch->asked().size(), 3);
}

TEST_F(TrailerContTest, stopThreading_endsAHangingFetchAndSaves_whenThereIsAnythingNew)
{
    m_fetch->setHanging(QStringLiteral("http://h/trailers/b/"));
    m_controller->scanLatest();
    ASSERT_TRUE(m_fetch->waitForAsked(QStringLiteral("http://h/trailers/b/")));
    m_controller->stopThreading();
    EXPECT_FALSE(m_controller->inThreading());
    EXPECT_EQ(m_controller->lastEnd().kind, ScanEnd::Kind::Stopped);
    TrailerList saved(m_home.path(), seed());
    saved.load();
    EXPECT_TRUE(saved.record(movieUrl));
}

TEST_F(TrailerContTest, stopThreading_letsTheNextCrawlFetch_whenItHasEndedOne)
{
    m_fetch->setHanging(startUrl);
    m_controller->scanLatest();
    ASSERT_TRUE(m_fetch->waitForAsked(startUrl));
    m_controller->stopThreading();
    m_controller->stopThreading();
    m_fetch->setHanging({});
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_EQ(m_controller->lastEnd().kind, ScanEnd::Kind::Whole);
    EXPECT_EQ(m_controller->lastEnd().pages, 3);
}

TEST_F(TrailerContTest, scan_tellsTheMainThreadAndSavesNothing_whenItRuns)
{
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_GE(m_observer.reloads, 1);
    EXPECT_TRUE(m_observer.isOnMain);
    EXPECT_EQ(m_controller->list().count(), 1);
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(TrailerContTest, scan_stopsTheCrawl_whenOneRuns)
{
    m_fetch->setHanging(innerUrl);
    m_controller->scan();
    ASSERT_TRUE(m_fetch->waitForAsked(innerUrl));
    EXPECT_TRUE(m_controller->onThreading());
    m_controller->scan();
    EXPECT_FALSE(m_controller->onThreading());
    EXPECT_FALSE(m_controller->inThreading());
    EXPECT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_EQ(m_controller->list().count(), 0);
}

TEST_F(TrailerContTest, scan_saysWhy_whenTheStartPageCannotBeRead)
{
    m_controller->setSite({QStringLiteral("http://h/gone"), {}});
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_EQ(m_controller->lastEnd().kind, ScanEnd::Kind::NoPage);
    EXPECT_EQ(m_controller->lastEnd().reason, QStringLiteral("Cannot read http://h/gone: no such page"));
}

TEST_F(TrailerContTest, scan_staysOnTheConfiguredHost_whenThereIsOne)
{
    m_controller->setSite({startUrl, QStringLiteral("elsewhere")});
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_EQ(m_fetch->asked(), QStringList(startUrl));
}

TEST_F(TrailerContTest, scan_saysInOneLine_thatTheHostIsNotThatOfThePage)
{
    for (const char* host : {"http://h", "H", "elsewhere", "h:81"}) {
        m_log.clear();
        m_observer.stops = 0;
        m_controller->setSite({startUrl, QLatin1String(host)});
        m_controller->scan();
        ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
        EXPECT_EQ(m_log, (QStringList{QStringLiteral("Thread started."),
                                      QStringLiteral("The site's host is set to \"%1\", but "
                                                     "http://h/trailers/ is on \"h\": no link is followed.")
                                          .arg(QLatin1String(host)),
                                      QStringLiteral("Thread exited.")}));
        EXPECT_EQ(m_controller->lastEnd().otherHost, QLatin1String(host));
        EXPECT_EQ(m_controller->lastEnd().host, QStringLiteral("h"));
    }
}

TEST_F(TrailerContTest, scan_saysNothingOfTheHost_whenItIsThatOfThePage)
{
    for (const char* host : {"h", "h:80", ""}) {
        m_observer.stops = 0;
        m_controller->clear();
        m_controller->setSite({startUrl, QLatin1String(host)});
        m_controller->scan();
        ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
        EXPECT_EQ(m_controller->lastEnd().pages, 3) << host;
        EXPECT_TRUE(m_controller->lastEnd().otherHost.isEmpty()) << host;
    }
}

TEST_F(TrailerContTest, scan_runsAllTheSame_whenTheLockCannotBeMade)
{
    ASSERT_TRUE(QDir().mkpath(path("Kestro_Scanned_Trailers.lock")));
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_EQ(m_controller->lastEnd().kind, ScanEnd::Kind::Whole);
    EXPECT_EQ(
        m_controller->lastEnd().lockFault,
        QStringLiteral("Cannot make the lock %1: Is a directory").arg(path("Kestro_Scanned_Trailers.lock")));
    EXPECT_EQ(m_log.front(), m_controller->lastEnd().lockFault);
    EXPECT_EQ(m_controller->list().count(), 1);
}

TEST_F(TrailerContTest, scan_runsAllTheSame_whenTheFolderCannotBeMade)
{
    QFile blocked(m_home.filePath(QStringLiteral("Library")));
    ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
    m_controller->scanLatest();
    ASSERT_TRUE(waitForEnd());
    m_controller->stopThreading();
    EXPECT_EQ(m_controller->list().count(), 1);
    EXPECT_TRUE(m_controller->lastEnd().lockFault.startsWith(QStringLiteral("Cannot make the folder ")));
    EXPECT_EQ(m_log.count(m_controller->lastEnd().lockFault), 2); // of the crawl, and of saving
}

TEST_F(TrailerContTest, scan_saysInOneLineHowManyPagesWereRefused_asASCII)
{
    m_fetch->put(startUrl, "plain <a href=\"a/\"><a href=\"b/\"><a href=\"gone/\">");
    m_fetch->put(innerUrl, "<html>\xe4");
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_EQ(m_controller->lastEnd().refused, 1);
    EXPECT_EQ(m_controller->lastEnd().pages, 2);
    const QString line = QStringLiteral("Pages refused: 1. A start page without \"<html>\" has pages read as "
                                        "ASCII, and these hold other characters.");
    EXPECT_EQ(m_log.count(line), 1);

    m_log.clear();
    m_observer.stops = 0;
    m_controller->scan(); // the page stays visited
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_EQ(m_controller->lastEnd().refused, 0);
    EXPECT_EQ(m_log.count(line), 0);
}

TEST_F(TrailerContTest, scan_countsTheStartPage_whereThatIsRefused)
{
    m_fetch->put(startUrl, "plain \xe4");
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_EQ(m_controller->lastEnd().kind, ScanEnd::Kind::NoPage);
    EXPECT_EQ(m_controller->lastEnd().refused, 1);
    EXPECT_EQ(m_controller->lastEnd().reason,
              QStringLiteral("Cannot read http://h/trailers/: it is read as ASCII, "
                             "and holds other characters"));
}

TEST_F(TrailerContTest, scan_knowsWhetherAllWasVisited)
{
    for (const bool isVisited : {false, true}) {
        m_observer.stops = 0;
        m_controller->scan();
        ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
        EXPECT_EQ(m_controller->lastEnd().isAllVisited, isVisited);
    }
    m_observer.stops = 0;
    m_fetch->put(startUrl, "<html><a href=\"/trailers/\"><a href=\"/elsewhere/\">");
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_FALSE(m_controller->lastEnd().isAllVisited); // it leads nowhere but to itself
}

TEST_F(TrailerContTest, lastTrailers_knowsWhatAnotherProcessSaved_andMakesTheTableReload)
{
    EXPECT_TRUE(m_controller->lastTrailers(6, 480, {}).isEmpty());
    EXPECT_EQ(m_observer.reloads, 0);
    TrailerList other(m_home.path(), seed());
    other.store({record("http://h/a.mov")});
    ASSERT_TRUE(other.saveList());
    EXPECT_EQ(m_controller->lastTrailers(6, 480, {}).size(), 1);
    EXPECT_EQ(m_observer.reloads, 1);
}

TEST_F(TrailerContTest, scan_asksForNoPage_thatAnotherProcessHasVisitedMeanwhile)
{
    TrailerList other(m_home.path(), seed());
    other.addPassed(innerUrl.toStdString());
    ASSERT_TRUE(other.saveList());
    m_controller->scan();
    ASSERT_TRUE(waitUntil([this] { return m_observer.stops == 1; }));
    EXPECT_FALSE(m_fetch->asked().contains(innerUrl));
}

TEST_F(TrailerContTest, clear_makesTheTableReload_whenAsked)
{
    m_controller->list().store({record("http://h/a.mov")});
    m_controller->clear();
    EXPECT_EQ(m_observer.reloads, 1);
    EXPECT_EQ(m_controller->list().count(), 0);
}

TEST_F(TrailerContTest, destruction_endsTheCrawl_whenItHangs)
{
    m_fetch->setHanging(startUrl);
    m_controller->scanLatest();
    ASSERT_TRUE(m_fetch->waitForAsked(startUrl));
    m_controller.reset();
    EXPECT_EQ(m_log.back(), QStringLiteral("Thread exited."));
}

} // namespace kestro
