#include "trailers/ListLock.h"
#include "trailers/panel/PanelTest.h"
#include "trailers/panel/PanelWindow.h"
#include "ui_TrailerCont.h"

#include <QTest>

#include <atomic>
#include <thread>

namespace kestro {

namespace {

const QString startUrl = QStringLiteral("http://h/trailers/");
const QString innerUrl = QStringLiteral("http://h/trailers/a/");
const QString lastUrl = QStringLiteral("http://h/trailers/b/");
const QString otherUrl = QStringLiteral("http://other/trailers/");

// Keeps the crawl's thread waiting, within bounds; answers whether it came to be.
bool yieldsUntil(const std::function<bool()>& isSo)
{
    const QDeadlineTimer deadline(30000);
    while (!isSo() && !deadline.hasExpired())
        std::this_thread::yield();
    return isSo();
}

} // namespace

/// The panel in front of a site of two pages with a movie on each.
class PanelScanTest : public PanelTest {
protected:
    explicit PanelScanTest(const CrawlLimits& limits = {})
        : PanelTest(limits)
    {
        m_fetch->put(startUrl, "<html><a href=\"a/\">AC.Quicktime.packageMovie('m','s.mov',{width:480})");
        m_fetch->put(innerUrl, "<html>AC.Quicktime.packageMovie('m','t.mov',{width:480})");
        m_panel = std::make_unique<TrailerPanel>(*m_controller, m_movies, m_services);
        m_panel->showPanel(m_receiver);
    }

    [[nodiscard]] Ui::TrailerCont& controls() { return m_panel->panel().controls(); }
    [[nodiscard]] int rows() { return controls().listView->model()->rowCount(); }
    [[nodiscard]] bool reads(const char* text) { return controls().scanBtn->text() == QLatin1String(text); }
    [[nodiscard]] QString notes() { return controls().scanNotes->text(); }
    void finishScan()
    {
        controls().scanBtn->click();
        ASSERT_TRUE(waitUntil([this] { return reads("Scan"); }));
    }
    void scanUntilItHangsAt(const QString& url)
    {
        m_fetch->setHanging(url);
        controls().scanBtn->click();
        ASSERT_TRUE(m_fetch->waitForAsked(url));
    }

    NotingReceiver m_receiver;
    std::unique_ptr<TrailerPanel> m_panel;
};

TEST_F(PanelScanTest, scan_fillsTheTableAndSaysHowItEnded)
{
    controls().scanBtn->click();
    EXPECT_TRUE(reads("Stop"));
    EXPECT_TRUE(controls().progress->isVisible());
    ASSERT_TRUE(waitUntil([this] { return reads("Scan"); }));
    EXPECT_FALSE(controls().progress->isVisible());
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(controls().stateField->text(), QStringLiteral("0/2"));
    EXPECT_EQ(controls().scanEnd->text(), QStringLiteral("Scan finished. Pages read: 2"));
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(PanelScanTest, scan_showsEachPageAsItIsDone)
{
    m_fetch->put(startUrl, "<html><a href=\"a/\"><a href=\"b/\">");
    scanUntilItHangsAt(lastUrl);
    EXPECT_TRUE(waitUntil([this] { return rows() == 1; }));
    EXPECT_TRUE(reads("Stop"));
}

TEST_F(PanelScanTest, scan_showsTheWholeList_whenItEndsInAPauseBetweenReloads)
{
    m_fetch->put(startUrl, "<html><a href=\"a/\"><a href=\"b/\">");
    m_fetch->put(lastUrl, "<html>AC.Quicktime.packageMovie('m','u.mov',{width:480})");
    std::atomic<bool> isReloaded = false;
    QObject::connect(controls().listView->model(), &QAbstractItemModel::modelReset, &m_panel->panel(), [&] {
        m_clock.advance(1); // it took long
        isReloaded = true;
    });
    m_fetch->setHandler([&](const QString& url) {
        EXPECT_TRUE(url != lastUrl || yieldsUntil([&] { return isReloaded.load(); }));
    });
    controls().scanBtn->click();
    ASSERT_TRUE(waitUntil([this] { return reads("Scan"); }));
    EXPECT_EQ(rows(), 2);
}

TEST_F(PanelScanTest, scan_forgetsHowTheLastOneEnded_whenItBegins)
{
    controls().scanBtn->click();
    ASSERT_TRUE(waitUntil([this] { return reads("Scan"); }));
    scanUntilItHangsAt(startUrl);
    EXPECT_TRUE(controls().scanEnd->text().isEmpty());
}

TEST_F(PanelScanTest, scan_stopsTheCrawl_whenItIsPressedAgain)
{
    m_fetch->put(startUrl,
                 "<html><a href=\"a/\"><a href=\"b/\">AC.Quicktime.packageMovie('m','s.mov',{width:480})");
    scanUntilItHangsAt(innerUrl);
    controls().scanBtn->click();
    EXPECT_FALSE(m_controller->inThreading());
    ASSERT_TRUE(waitUntil([this] { return reads("Scan"); }));
    EXPECT_EQ(rows(), 0);
    EXPECT_EQ(controls().scanEnd->text(), QStringLiteral("Scan stopped. Pages read: 1"));
}

TEST_F(PanelScanTest, scan_leavesTheWindowAlive_whenTheServerHangs)
{
    scanUntilItHangsAt(startUrl);
    QTest::keyClicks(controls().findField, QStringLiteral("ada"));
    EXPECT_EQ(controls().findField->text(), QStringLiteral("ada"));
    EXPECT_TRUE(m_controller->inThreading());
    m_panel->scan();
    EXPECT_TRUE(waitUntil([this] { return reads("Scan"); }));
}

TEST_F(PanelScanTest, scan_beginsAtTheAddressInTheField)
{
    m_fetch->put(otherUrl, "<html>AC.Quicktime.packageMovie('m','o.mov',{width:480})");
    controls().urlField->setText(otherUrl);
    QTest::keyClick(controls().urlField, Qt::Key_Return);
    ASSERT_TRUE(waitUntil([this] { return reads("Scan"); }));
    EXPECT_EQ(m_fetch->asked(), QStringList(otherUrl));
    EXPECT_EQ(rows(), 1);
}

TEST_F(PanelScanTest, urlField_doesNotStopTheCrawl_whenReturnIsPressedInIt)
{
    scanUntilItHangsAt(innerUrl);
    QTest::keyClick(controls().urlField, Qt::Key_Return);
    EXPECT_TRUE(m_controller->onThreading());
}

TEST_F(PanelScanTest, urlField_setsWhereAnyCrawlBegins)
{
    m_panel.reset();
    m_controller->setSite({startUrl, QStringLiteral("h")});
    m_panel = std::make_unique<TrailerPanel>(*m_controller, m_movies, m_services);
    controls().urlField->setText(otherUrl);
    EXPECT_EQ(m_controller->site().start, otherUrl);
    EXPECT_TRUE(m_controller->site().host.isEmpty());
    controls().urlField->setText(startUrl);
    EXPECT_EQ(m_controller->site().host, QStringLiteral("h"));
}

TEST_F(PanelScanTest, scan_saysWhy_whenNothingCanBeScanned)
{
    const auto endOf = [this](const QString& start) {
        controls().urlField->setText(start);
        controls().scanBtn->click();
        EXPECT_TRUE(waitUntil([this] { return reads("Scan"); }));
        return controls().scanEnd->text();
    };
    EXPECT_EQ(endOf(QString()), QStringLiteral("This is not the address of a page."));
    EXPECT_EQ(endOf(QStringLiteral("h t t p")), QStringLiteral("This is not the address of a page."));
    EXPECT_EQ(endOf(QStringLiteral("http://none/trailers/")),
              QStringLiteral("The page at this address cannot be read."));
    EXPECT_EQ(controls().scanEnd->toolTip(), m_controller->lastEnd().reason);
    EXPECT_EQ(m_log.last(), m_controller->lastEnd().reason);
}

TEST_F(PanelScanTest, scan_saysThatAnotherScans_whenAnotherProcessDoes)
{
    const auto other = ListLock::takeToCrawl(path());
    ASSERT_TRUE(other.isOk());
    controls().scanBtn->click();
    ASSERT_TRUE(waitUntil([this] { return reads("Scan"); }));
    EXPECT_EQ(controls().scanEnd->text(), QStringLiteral("The site is being scanned already."));
}

TEST_F(PanelScanTest, scan_saysWhyNothingCameOfIt_whenAllPagesWereVisited)
{
    finishScan();
    EXPECT_TRUE(controls().scanNotes->isHidden());
    finishScan();
    EXPECT_EQ(controls().scanEnd->text(), QStringLiteral("Scan finished. Pages read: 1"));
    EXPECT_EQ(notes(), QStringLiteral("The pages that this address leads to were all read before; Clear List "
                                      "forgets them, and a scan reads them again."));
    EXPECT_TRUE(controls().scanNotes->isVisible());

    controls().clearBtn->click();
    EXPECT_TRUE(controls().scanEnd->text().isEmpty());
    EXPECT_TRUE(controls().scanNotes->isHidden());
    finishScan();
    EXPECT_EQ(controls().scanEnd->text(), QStringLiteral("Scan finished. Pages read: 2"));
    EXPECT_TRUE(controls().scanNotes->isHidden());
}

TEST_F(PanelScanTest, scan_saysWhyPagesWereRefused_andHowMany)
{
    m_fetch->put(startUrl, "plain <a href=\"a/\"><a href=\"b/\">");
    m_fetch->put(innerUrl, "<html>\xe4");
    m_fetch->put(lastUrl, "<html>\xf6");
    finishScan();
    EXPECT_EQ(controls().scanEnd->text(), QStringLiteral("Scan finished. Pages read: 1"));
    EXPECT_EQ(notes(),
              QStringLiteral("Pages refused: 2. A start page without <html> has pages read as ASCII, "
                             "and these hold other letters."));
}

TEST_F(PanelScanTest, scan_saysThatTheHostIsNotThatOfThePage)
{
    m_controller->setSite({startUrl, QStringLiteral("http://h")});
    finishScan();
    EXPECT_EQ(notes(), QStringLiteral("The site's host is set to http://h, but this page is on h: no link is "
                                      "followed."));
}

TEST_F(PanelScanTest, scan_saysWhatItIs_whenTheLockCannotBeMade)
{
    ASSERT_TRUE(QDir().mkpath(path("Kestro_Scanned_Trailers.lock")));
    finishScan();
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(notes(), QStringLiteral("A second scan at the same time cannot be kept away: %1")
                           .arg(m_controller->lastEnd().lockFault));
}

TEST_F(PanelScanTest, scan_beginsNoOther_whenStopIsClickedTwice)
{
    scanUntilItHangsAt(startUrl);
    QTest::mouseClick(controls().scanBtn, Qt::LeftButton);
    ASSERT_TRUE(waitUntil([this] { return reads("Scan"); }));
    QTest::mouseDClick(controls().scanBtn, Qt::LeftButton);
    QTest::mouseRelease(controls().scanBtn, Qt::LeftButton);
    EXPECT_FALSE(m_controller->onThreading());
    QTest::mouseClick(controls().scanBtn, Qt::LeftButton);
    EXPECT_TRUE(m_controller->onThreading());
}

TEST_F(PanelScanTest, scan_stopsTheCrawl_whenScanIsClickedTwice)
{
    m_fetch->setHanging(startUrl);
    QTest::mouseClick(controls().scanBtn, Qt::LeftButton);
    ASSERT_TRUE(m_fetch->waitForAsked(startUrl));
    QTest::mouseDClick(controls().scanBtn, Qt::LeftButton);
    QTest::mouseRelease(controls().scanBtn, Qt::LeftButton);
    EXPECT_FALSE(m_controller->onThreading());
}

TEST_F(PanelScanTest, close_endsTheCrawlAndSavesWhatItFound)
{
    m_fetch->put(startUrl, "<html><a href=\"a/\"><a href=\"b/\">");
    scanUntilItHangsAt(lastUrl);
    m_panel->close();
    EXPECT_FALSE(m_controller->inThreading());
    TrailerList saved(m_home.path(), seed());
    saved.load();
    EXPECT_TRUE(saved.record(innerUrl + QStringLiteral("t.mov")));
}

TEST_F(PanelScanTest, close_savesAlsoWhatComesBeforeTheCrawlHasEnded)
{
    const QString late = QStringLiteral("http://h/trailers/late.mov");
    m_fetch->setHandler([&](const QString&) {
        EXPECT_TRUE(yieldsUntil([this] { return !m_controller->onThreading(); }));
        list().store({record(qPrintable(late))});
    });
    controls().scanBtn->click();
    ASSERT_TRUE(waitUntil([this] { return m_controller->inThreading(); }));
    m_panel->close();
    TrailerList saved(m_home.path(), seed());
    saved.load();
    EXPECT_TRUE(saved.record(late));
}

TEST_F(PanelScanTest, panel_endsItsCrawl_whenItGoes)
{
    scanUntilItHangsAt(innerUrl);
    m_panel.reset();
    EXPECT_FALSE(m_controller->onThreading());
    EXPECT_FALSE(m_controller->inThreading());
}

TEST_F(PanelScanTest, silentCrawl_changesNoButton_andIsStoppedByScan)
{
    m_fetch->setHanging(startUrl);
    m_controller->scanLatest();
    ASSERT_TRUE(m_fetch->waitForAsked(startUrl));
    EXPECT_TRUE(reads("Scan"));
    controls().scanBtn->click();
    EXPECT_FALSE(m_controller->inThreading());
    EXPECT_TRUE(reads("Scan"));
}

/// The same, of which no more than the first page may be read.
class BoundedPanelScanTest : public PanelScanTest {
protected:
    BoundedPanelScanTest()
        : PanelScanTest({.pages = 1})
    {
    }
};

TEST_F(BoundedPanelScanTest, scan_saysSoAndShowsWhatItHas_whenItComesToABound)
{
    controls().scanBtn->click();
    ASSERT_TRUE(waitUntil([this] { return reads("Scan"); }));
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(controls().scanEnd->text(),
              QStringLiteral("Scan ended: the site has more than fits. Pages read: 1"));
    EXPECT_EQ(controls().scanEnd->toolTip(), QStringLiteral("The crawl came to a bound: 1 pages."));
}

} // namespace kestro
