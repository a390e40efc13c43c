#pragma once

#include "platform/base/Result.h"
#include "platform/network/Fetch.h"
#include "trailers/CrawlBudget.h"
#include "trailers/CrawlWatcher.h"
#include "trailers/LinkResolver.h"
#include "trailers/PageText.h"
#include "trailers/PageUnpacker.h"
#include "trailers/TrailerRecord.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

class QUrl;

namespace kestro {

class PageBase;
class TrailerList;

/// What a crawl asks and tells its owner, on the crawl's thread.
struct CrawlHooks {
    std::function<bool()> isWanted;        ///< false ends the crawl at the next link
    std::function<void()> reloadTableView; ///< the list has more to show
};

/// Walks the trailer site from one page, depth first, and keeps the movies that it finds in the list. A
/// page's movies are kept once every page that it links to is done. The way down is a stack of its own, so
/// depth costs no more than its pages. A crawl that comes to a bound follows no further link, and keeps what
/// it has. Owned by the controller; one crawl at a time, on one thread.
class ScanCrawler final {
public:
    /// `fetch` and `list` outlive the crawler; `scratchFolder` is for unpacking pages.
    ScanCrawler(Fetch& fetch, TrailerList& list, const QString& scratchFolder, CrawlHooks hooks,
                CrawlBudget budget);
    ~ScanCrawler();

    /// The host whose pages may be fetched, with a port or for every port.
    void setSiteHost(std::string host) { m_site.host = std::move(host); }
    /// Tells `watcher` of each page from the next crawl on; null for nobody.
    void setWatcher(CrawlWatcher* watcher) { m_watcher = watcher; }

    /// Scans the page at `url`, an absolute string, and every page below it. With `progress` reloadTableView
    /// is called after each page. True when the page was scanned to its end.
    bool scanURLProgress(const std::string& url, bool progress);

    /// Pages that the last crawl has read, and why its first page could not be read.
    [[nodiscard]] int pageCount() const { return m_pages; }
    [[nodiscard]] const QString& startFailure() const { return m_startFailure; }
    /// Pages that it refused, because pages are read as ASCII and these hold other characters.
    [[nodiscard]] int refusedCount() const { return m_refused; }
    /// Whether its first page led to pages that had been visited before, and to no other.
    [[nodiscard]] bool isAllVisited() const { return m_isAllVisited; }
    /// The bound that kept the last crawl from pages that it would have asked for, in words; empty for none.
    [[nodiscard]] const QString& bound() const { return m_budget.bound(); }

private:
    /// Each link once, however many pages have it, and whether it counts as one that is still to be followed.
    using KnownLinks = std::unordered_map<std::string, bool>;
    using Link = KnownLinks::value_type;

    /// A page on the way down, and how far its links are followed.
    struct OpenPage {
        std::vector<Link*> links; ///< those on the site, visited or not
        std::size_t next = 0;
        bool endsWithOtherLink = false; ///< the page ends with a link that is not in `links`
        std::size_t fresh = 0;          ///< of the links, those that nobody had visited when it was opened
        std::vector<TrailerRecord> movies;
        qint64 held = 0; ///< bytes of all this
    };

    void begin();
    bool step(bool progress);
    bool leavePage(bool isWhole, bool progress);
    [[nodiscard]] bool enterPage(const std::string& url);

    [[nodiscard]] static bool leadsToVisitedOnly(const OpenPage& page, const std::string& url);
    [[nodiscard]] Result<OpenPage> openPage(const std::string& url);
    static void logOverLimit(const QUrl& url, const FetchFault& fault);
    [[nodiscard]] Result<QByteArray> textOf(const std::string& url);
    [[nodiscard]] bool canBeDecoded(const Result<QByteArray>& page, const std::string& url);
    [[nodiscard]] QByteArray feedText(const QUrl& feed);
    void takeLinks(std::vector<std::string> links, OpenPage& page);
    bool take(Link& link, OpenPage& page);
    void queue(Link& link);
    void unqueue(Link& link);
    void takeMovies(std::vector<TrailerRecord> movies, OpenPage& page);
    [[nodiscard]] bool hold(OpenPage& page, qint64 bytes);
    [[nodiscard]] bool goesOn();
    [[nodiscard]] bool isOnSite(const std::string& link) const;
    [[nodiscard]] CrawlCounts counts() const;

    Fetch& m_fetch;
    TrailerList& m_list;
    PageUnpacker m_unpacker;
    CrawlHooks m_hooks;
    CrawlBudget m_budget;
    CrawlWatcher* m_watcher = nullptr;
    CrawledSite m_site;
    PageEncoding m_encoding = PageEncoding::IsoLatin1; ///< once switched, for good
    std::vector<OpenPage> m_path;                      ///< from the start page to the present one
    KnownLinks m_known;
    QString m_startFailure;
    bool m_isCutShort = false; ///< the fetch before, by a stop
    bool m_isAllVisited = false;
    int m_pages = 0;
    int m_refused = 0;
    qsizetype m_queue = 0;
    qint64 m_bytesBefore = 0; ///< that came before this crawl
};

/// What the links of the page at `url` are resolved against: its folder.
[[nodiscard]] std::optional<PageBase> baseOfPage(const std::string& url);

} // namespace kestro
