#pragma once

#include "platform/base/Clock.h"
#include "settings/LatestTrailers.h"
#include "trailers/ScanCrawler.h"
#include "trailers/ScanEnd.h"
#include "trailers/TrailerList.h"
#include "trailers/TrailerSite.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <thread>

namespace kestro {

class Fetch;

/// Who shows the list and the crawl. Owned by itself; called on the main thread.
class TrailerObserver {
public:
    virtual ~TrailerObserver() = default;

    /// The list has changed.
    virtual void reloadTableView() = 0;
    /// A crawl that was started by scan() is over.
    virtual void stopProgress() = 0;
};

/// The trailer scanner: the list of trailers and the crawl that fills it, on a thread of its own. One a
/// process, made when something first asks for it, and kept to the end. Main thread but where something else
/// is said.
class TrailerCont final : public LatestTrailers {
public:
    struct Parts {
        QString homeFolder;
        QString seed;          ///< a list for users who have none
        QString scratchFolder; ///< for unpacking pages; need not exist
        TrailerSite site;
        std::unique_ptr<Fetch> fetch;
        CrawlLimits limits = {};
    };

    /// The one controller, made at the first call.
    [[nodiscard]] static TrailerCont& sharedController();
    /// The same, but null where nothing has asked for it yet.
    [[nodiscard]] static TrailerCont* sharedControllerIfMade();

    /// Reads the list file.
    explicit TrailerCont(Parts parts);
    ~TrailerCont() override;
    TrailerCont(const TrailerCont&) = delete;
    TrailerCont& operator=(const TrailerCont&) = delete;

    [[nodiscard]] QList<QUrl> lastTrailers(int count, int width, const QSet<QString>& excluded) override;
    /// Starts a crawl that shows nothing and saves what it found; nothing while one is wanted already, nor
    /// without a start address, which is logged once.
    void scanLatest() override;
    /// Ends the crawl that runs, and waits until it has: up to 100 ms, and as long as saving takes.
    void stopThreading() override;

    /// Starts a crawl that shows its progress and saves nothing; stops the one that runs.
    void scan();
    /// Whether a crawl is wanted. Any thread.
    [[nodiscard]] bool onThreading() const { return m_onThreading; }
    /// Whether a crawl is at work. Any thread.
    [[nodiscard]] bool inThreading() const { return m_inThreading; }
    /// How the last crawl ended; while none runs.
    [[nodiscard]] const ScanEnd& lastEnd() const { return m_end; }

    /// Forgets the whole list, in memory.
    void clear();

    [[nodiscard]] TrailerList& list() { return m_list; }
    [[nodiscard]] const TrailerList& list() const { return m_list; }
    /// Where the next crawl begins: what the address field shows.
    [[nodiscard]] const TrailerSite& site() const { return m_site; }
    void setSite(TrailerSite site) { m_site = std::move(site); }
    /// Null for nobody.
    void setObserver(TrailerObserver* observer) { m_observer = observer; }
    /// From the next crawl on; null for nobody.
    void setWatcher(CrawlWatcher* watcher) { m_crawler.setWatcher(watcher); }

private:
    void detachNewThreadSelector(void (TrailerCont::*body)(const TrailerSite&));
    // On the worker.
    void scanTralers(const TrailerSite& site);
    void scanTralersWithNoProgress(const TrailerSite& site);
    void crawl(const TrailerSite& site, bool progress);
    [[nodiscard]] ScanEnd crawlWithLock(const std::string& url, const TrailerSite& site, bool progress);
    [[nodiscard]] ScanEnd scanFrom(const std::string& url, bool progress);
    static void noteOtherHost(const std::string& url, const TrailerSite& site, ScanEnd& end);
    void leaveThread();
    void postReload();
    void postStopProgress();

    TrailerList m_list;
    TrailerSite m_site;
    std::unique_ptr<Fetch> m_fetch;
    SystemClock m_clock;
    ScanCrawler m_crawler;
    TrailerObserver* m_observer = nullptr;
    QObject m_mainThread; ///< what the worker asks of the main thread is posted to it
    ScanEnd m_end;        ///< the worker's until it leaves
    bool m_hasComplained = false;
    std::atomic<bool> m_onThreading = false;
    std::atomic<bool> m_inThreading = false;
    std::atomic<bool> m_hasWorker = false; ///< from just before a start to the worker's last touch
    std::atomic<bool> m_isReloadPosted = false;
    std::thread m_worker;
};

} // namespace kestro
