#include "trailers/TrailerCont.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/base/PostTo.h"
#include "platform/base/ShownURL.h"
#include "platform/network/CurlFetch.h"
#include "trailers/ListLock.h"
#include "trailers/PageBase.h"

#include <system_error>
#include <utility>

namespace kestro {

namespace {

// Never destroyed: savers may live until the very end of the process.
TrailerCont*& shared()
{
    static TrailerCont* only = nullptr;
    return only;
}

TrailerCont::Parts partsOfThisUser()
{
    return {homeFolder(),
            packageLibraries() +
                QStringLiteral("/Kestro.saver/Contents/Resources/Kestro_Scanned_Trailers.lst"),
            unpackingFolder(), configuredTrailerSite(), std::make_unique<CurlFetch>()};
}

ScanEnd endOf(ScanEnd::Kind kind, const QString& reason, int pages = 0)
{
    ScanEnd end;
    end.kind = kind;
    end.reason = reason;
    end.pages = pages;
    return end;
}

void logRefused(int pages)
{
    if (pages == 0) return;
    logLine(QStringLiteral("Pages refused: %1. A start page without \"<html>\" has pages read as ASCII, and "
                           "these hold other characters.")
                .arg(pages));
}

QString cannotRead(const std::string& url, const QString& reason)
{
    return QStringLiteral("Cannot read %1: %2").arg(shownURL(QUrl(QString::fromStdString(url))), reason);
}

} // namespace

TrailerCont& TrailerCont::sharedController()
{
    if (!shared()) shared() = new TrailerCont(partsOfThisUser());
    return *shared();
}

TrailerCont* TrailerCont::sharedControllerIfMade()
{
    return shared();
}

TrailerCont::TrailerCont(Parts parts)
    : m_list(parts.homeFolder, parts.seed)
    , m_site(std::move(parts.site))
    , m_fetch(std::move(parts.fetch))
    , m_crawler(*m_fetch, m_list, parts.scratchFolder,
                {[this] { return onThreading(); }, [this] { postReload(); }}, {parts.limits, m_clock})
{
    m_list.load();
}

TrailerCont::~TrailerCont()
{
    stopThreading();
    if (m_worker.joinable()) m_worker.join();
}

QList<QUrl> TrailerCont::lastTrailers(int count, int width, const QSet<QString>& excluded)
{
    if (m_list.refresh() && m_observer) m_observer->reloadTableView();
    return m_list.lastTrailers(count, width, excluded);
}

void TrailerCont::scanLatest()
{
    if (m_onThreading) return;
    if (!m_site.start.isEmpty()) return detachNewThreadSelector(&TrailerCont::scanTralersWithNoProgress);
    if (std::exchange(m_hasComplained, true)) return;
    logLine(QStringLiteral("No new trailers are looked for: no trailer site is named in %1.")
                .arg(configurationFile()));
}

void TrailerCont::scan()
{
    if (m_onThreading) return stopThreading();
    detachNewThreadSelector(&TrailerCont::scanTralers);
}

void TrailerCont::detachNewThreadSelector(void (TrailerCont::*body)(const TrailerSite&))
{
    if (m_worker.joinable()) m_worker.join();
    m_onThreading = true;
    m_hasWorker = true;
    m_fetch->allow();
    try {
        m_worker = std::thread([this, body, site = m_site] { (this->*body)(site); });
    } catch (const std::system_error&) {
        logLine(QStringLiteral("Cannot start a thread for the crawl."));
        m_onThreading = false;
        m_hasWorker = false;
    }
}

void TrailerCont::stopThreading()
{
    m_onThreading = false;
    if (!m_hasWorker) return;
    m_fetch->cancel();
    m_hasWorker.wait(true);
}

void TrailerCont::clear()
{
    m_list.clear();
    if (m_observer) m_observer->reloadTableView();
}

void TrailerCont::scanTralers(const TrailerSite& site)
{
    crawl(site, true);
    postStopProgress();
    leaveThread();
}

void TrailerCont::scanTralersWithNoProgress(const TrailerSite& site)
{
    crawl(site, false);
    if (m_end.pages == 0 && !m_end.reason.isEmpty()) logLine(m_end.reason);
    leaveThread();
}

void TrailerCont::crawl(const TrailerSite& site, bool progress)
{
    const std::string url = site.start.trimmed().toStdString();
    const auto lock = ListLock::takeToCrawl(m_list.file().path());
    if (!PageBase::from(url)) {
        m_end =
            endOf(ScanEnd::Kind::NoAddress, QStringLiteral("No address of a page: \"%1\"").arg(site.start));
    } else if (!lock && lock.failure().kind == LockFault::Kind::Taken) {
        m_end = endOf(ScanEnd::Kind::Taken, lock.failure().message);
    } else {
        const QString fault = lock ? QString() : lock.failure().message;
        if (!lock) logLine(fault);
        m_end = crawlWithLock(url, site, progress);
        m_end.lockFault = fault;
    }
    m_onThreading = false;
    m_inThreading = false;
}

// Saving belongs to the crawl: whoever stops it waits for that too.
ScanEnd TrailerCont::crawlWithLock(const std::string& url, const TrailerSite& site, bool progress)
{
    logLine(QStringLiteral("Thread started."));
    m_inThreading = true;
    m_list.refresh();
    m_crawler.setSiteHost(site.hostFor(url));
    ScanEnd end = scanFrom(url, progress);
    if (end.pages > 0 && !site.isOnHost(url)) noteOtherHost(url, site, end);
    end.refused = m_crawler.refusedCount();
    logRefused(end.refused);
    if (!progress && m_list.isChanged()) m_list.saveList();
    logLine(QStringLiteral("Thread exited."));
    return end;
}

ScanEnd TrailerCont::scanFrom(const std::string& url, bool progress)
{
    m_crawler.scanURLProgress(url, progress);
    const int pages = m_crawler.pageCount();
    if (!m_onThreading) return endOf(ScanEnd::Kind::Stopped, {}, pages);
    if (pages == 0) return endOf(ScanEnd::Kind::NoPage, cannotRead(url, m_crawler.startFailure()));
    if (m_crawler.bound().isEmpty()) {
        ScanEnd end = endOf(ScanEnd::Kind::Whole, {}, pages);
        end.isAllVisited = m_crawler.isAllVisited();
        return end;
    }
    const QString reason = QStringLiteral("The crawl came to a bound: %1.").arg(m_crawler.bound());
    logLine(reason);
    return endOf(ScanEnd::Kind::Bounded, reason, pages);
}

// Links are resolved against the start page, so none of them leads to another host than its own.
void TrailerCont::noteOtherHost(const std::string& url, const TrailerSite& site, ScanEnd& end)
{
    end.otherHost = site.host;
    end.host = QString::fromStdString(TrailerSite().hostFor(url));
    logLine(QStringLiteral("The site's host is set to \"%1\", but %2 is on \"%3\": no link is followed.")
                .arg(end.otherHost, shownURL(QUrl(QString::fromStdString(url))), end.host));
}

void TrailerCont::leaveThread()
{
    m_hasWorker = false;
    m_hasWorker.notify_all();
}

// One request at a time: a page that cannot keep up with the crawl still shows its newest state.
void TrailerCont::postReload()
{
    if (m_isReloadPosted.exchange(true)) return;
    postTo(m_mainThread, [this] {
        m_isReloadPosted = false;
        if (m_observer) m_observer->reloadTableView();
    });
}

void TrailerCont::postStopProgress()
{
    postTo(m_mainThread, [this] {
        if (m_observer) m_observer->stopProgress();
    });
}

} // namespace kestro
