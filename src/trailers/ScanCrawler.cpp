#include "trailers/ScanCrawler.h"

#include "platform/base/FileName.h"
#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"
#include "trailers/PageBase.h"
#include "trailers/PageParser.h"
#include "trailers/TrailerList.h"
#include "trailers/URLText.h"

#include <QUrl>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace kestro {

namespace {

constexpr qsizetype shortestPage = 5; // bytes
constexpr qint64 bytesOfNode = 64;    // of a link in a set, beside its text

QUrl urlOf(const std::string& text)
{
    return QUrl::fromEncoded(QByteArray::fromStdString(text));
}

QString shown(const std::string& text)
{
    return shownURL(urlOf(text));
}

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// "/a/b.html" is in "/a/", "/a/b" is a folder itself.
std::string folderOf(std::string_view path)
{
    if (path.empty()) return "/";
    if (!path.ends_with('/') && !extensionIn(path).empty()) path = path.substr(0, path.rfind('/') + 1);
    return std::string(path) + (path.ends_with('/') ? "" : "/");
}

QString outcomeOf(std::size_t links, std::size_t movies)
{
    return QStringLiteral("%1 links to follow, %2 movies").arg(links).arg(movies);
}

} // namespace

std::optional<PageBase> baseOfPage(const std::string& url)
{
    const auto parts = URLText::parse(url);
    if (!parts || parts->scheme.empty()) return {};
    return PageBase::from(std::string(parts->scheme) + "://" + std::string(parts->hostAndPort()) +
                          folderOf(parts->path()));
}

ScanCrawler::ScanCrawler(Fetch& fetch, TrailerList& list, const QString& scratchFolder, CrawlHooks hooks,
                         CrawlBudget budget)
    : m_fetch(fetch)
    , m_list(list)
    , m_unpacker(scratchFolder)
    , m_hooks(std::move(hooks))
    , m_budget(std::move(budget))
{
}

ScanCrawler::~ScanCrawler() = default;

bool ScanCrawler::scanURLProgress(const std::string& url, bool progress)
{
    begin();
    bool isWhole = enterPage(url);
    while (!m_path.empty())
        isWhole = step(progress);
    m_known.clear();
    return isWhole;
}

void ScanCrawler::begin()
{
    m_path.clear();
    m_known.clear();
    m_startFailure.clear();
    m_isAllVisited = false;
    m_pages = 0;
    m_refused = 0;
    m_queue = 0;
    m_budget.begin();
    m_bytesBefore = m_fetch.received() + m_unpacker.unpackedBytes();
    m_unpacker.sweep();
}

// What the page that was left came to; the last one left is the first one entered.
bool ScanCrawler::step(bool progress)
{
    OpenPage& page = m_path.back();
    const bool isAtEnd = page.next == page.links.size();
    if (isAtEnd || !m_hooks.isWanted())
        return leavePage(isAtEnd && (!page.endsWithOtherLink || m_hooks.isWanted()), progress);
    Link& link = *page.links[page.next];
    // Asked now: another page may have led there meanwhile, or the list may have been cleared.
    const bool isPassed = m_list.isPassed(link.first);
    if (!isPassed && !goesOn()) return leavePage(true, progress);
    ++page.next;
    unqueue(link);
    return !isPassed && m_budget.reaches(qsizetype(m_path.size())) && enterPage(link.first);
}

// Pages that were not followed to their end keep their movies to themselves.
bool ScanCrawler::leavePage(bool isWhole, bool progress)
{
    OpenPage page = std::move(m_path.back());
    m_path.pop_back();
    m_budget.release(page.held);
    if (!isWhole) return false;
    m_list.store(std::move(page.movies));
    if (progress) m_hooks.reloadTableView();
    return true;
}

bool ScanCrawler::enterPage(const std::string& url)
{
    if (m_watcher) m_watcher->pageBegins(url, counts());
    const bool isNew = m_list.addPassed(url);
    m_budget.addPage();
    auto page = openPage(url);
    if (!page) {
        if (isNew && m_isCutShort) m_list.forgetPassed(url);
        if (m_path.empty()) m_startFailure = page.error();
        if (m_watcher) m_watcher->pageEnds(url, page.error());
        return false;
    }
    if (m_path.empty()) m_isAllVisited = leadsToVisitedOnly(page.value(), url);
    ++m_pages;
    if (m_watcher) m_watcher->pageEnds(url, outcomeOf(page.value().fresh, page.value().movies.size()));
    m_path.push_back(std::move(page.value()));
    return true;
}

// A page that leads to itself counts as visited, but says nothing.
bool ScanCrawler::leadsToVisitedOnly(const OpenPage& page, const std::string& url)
{
    const auto isOther = [&url](const Link* link) { return link->first != url; };
    return page.fresh == 0 && std::any_of(page.links.begin(), page.links.end(), isOther);
}

// The page's bytes are gone when its links are followed.
Result<ScanCrawler::OpenPage> ScanCrawler::openPage(const std::string& url)
{
    const auto text = textOf(url);
    if (!text) return text.failure();
    const auto base = baseOfPage(url);
    if (!base) return Error{QStringLiteral("its links have no base")};
    bool isStopped = false;
    const auto isWanted = [&] {
        isStopped = isStopped || !m_hooks.isWanted();
        return !isStopped;
    };
    const PageParser parser([this](const QUrl& feed) { return feedText(feed); }, curDateStr(m_budget.clock()),
                            isWanted);
    OpenPage page;
    takeMovies(parser.movieListFromStringBase(viewOf(text.value()), *base), page);
    takeLinks(parser.linkListFromStringBase(viewOf(text.value()), *base), page);
    if (isStopped) {
        m_budget.release(page.held);
        return Error{QStringLiteral("stopped while it was read")};
    }
    return page;
}

Result<QByteArray> ScanCrawler::textOf(const std::string& url)
{
    auto fetched = m_fetch.fetch(urlOf(url));
    m_isCutShort = !fetched && fetched.failure().kind == FetchFault::Kind::Cancelled;
    if (!fetched) {
        // Of the first page whoever crawls says it.
        if (!m_path.empty()) logOverLimit(urlOf(url), fetched.failure());
        return Error{fetched.failure().message};
    }
    Result<QByteArray> page = std::move(fetched.value());
    if (page.value().size() < shortestPage) return Error{QStringLiteral("nothing in it")};
    if (PageUnpacker::isPacked(page.value())) {
        page = m_unpacker.unpack(page.value(), m_hooks.isWanted);
        if (!page) logLine(QStringLiteral("Cannot unpack %1: %2").arg(shown(url), page.error()));
    }
    if (canBeDecoded(page, url)) return page;
    if (!page) return page;
    ++m_refused;
    return Error{QStringLiteral("it is read as ASCII, and holds other characters")};
}

// What cannot be reached is left out without a line.
void ScanCrawler::logOverLimit(const QUrl& url, const FetchFault& fault)
{
    if (fault.kind == FetchFault::Kind::OverLimit)
        logLine(QStringLiteral("Cannot read %1: %2").arg(shownURL(url), fault.message));
}

// Only the first page of a crawl decides about the encoding.
bool ScanCrawler::canBeDecoded(const Result<QByteArray>& page, const std::string& url)
{
    const auto hasText = [&] { return page && isText(page.value(), m_encoding); };
    if (m_path.empty() && !(hasText() && holdsHtmlTag(page.value()))) {
        m_encoding = PageEncoding::Ascii;
        logLine(QStringLiteral("Encoding Changed... %1").arg(static_cast<int>(m_encoding)));
    }
    if (hasText()) return true;
    logLine(QStringLiteral("No Contents (retry)....%1").arg(shown(url)));
    if (page && isText(page.value(), PageEncoding::Ascii)) return true;
    logLine(QStringLiteral("No Contents (return NO)....%1").arg(shown(url)));
    return false;
}

QByteArray ScanCrawler::feedText(const QUrl& feed)
{
    if (!goesOn()) return {};
    auto text = m_fetch.fetch(feed);
    if (text) return std::move(text.value());
    logOverLimit(feed, text.failure());
    return {};
}

// What leads off the site never can be followed; left out here it takes no room while the page waits. A page
// that was visited may be forgotten meanwhile, when the list is cleared, but that ends no crawl for want of
// room.
void ScanCrawler::takeLinks(std::vector<std::string> links, OpenPage& page)
{
    std::unordered_set<const Link*> taken;
    for (std::string& text : links) {
        page.endsWithOtherLink = !isOnSite(text) || (!m_budget.hasMemoryToSpare() && m_list.isPassed(text));
        if (page.endsWithOtherLink) continue;
        const auto size = qint64(text.size());
        const auto [known, isNew] = m_known.try_emplace(std::move(text), false);
        if (isNew && !m_budget.hold(bytesOfNode + size)) break;
        page.endsWithOtherLink = !taken.insert(&*known).second;
        if (page.endsWithOtherLink) continue;
        if (!take(*known, page)) break;
    }
    page.links.shrink_to_fit();
}

bool ScanCrawler::take(Link& link, OpenPage& page)
{
    if (!hold(page, sizeof(Link*))) return false;
    page.links.push_back(&link);
    if (m_list.isPassed(link.first)) return true;
    ++page.fresh;
    queue(link);
    return true;
}

void ScanCrawler::queue(Link& link)
{
    if (!std::exchange(link.second, true)) ++m_queue;
}

void ScanCrawler::unqueue(Link& link)
{
    if (std::exchange(link.second, false)) --m_queue;
}

void ScanCrawler::takeMovies(std::vector<TrailerRecord> movies, OpenPage& page)
{
    const auto sizeOf = [](const TrailerRecord& movie) {
        const qsizetype characters = movie.url.size() + movie.size.value_or(QString()).size();
        return qint64(sizeof movie) + characters * qint64(sizeof(QChar));
    };
    for (TrailerRecord& movie : movies) {
        if (!hold(page, sizeOf(movie))) return;
        page.movies.push_back(std::move(movie));
    }
    page.movies.shrink_to_fit();
}

bool ScanCrawler::hold(OpenPage& page, qint64 bytes)
{
    page.held += bytes;
    return m_budget.hold(bytes);
}

bool ScanCrawler::goesOn()
{
    m_budget.setBytes(m_fetch.received() + m_unpacker.unpackedBytes() - m_bytesBefore);
    if (m_list.isFull()) m_budget.listIsFull();
    return m_budget.goesOn();
}

bool ScanCrawler::isOnSite(const std::string& link) const
{
    return m_site.isValidURL(link, [](std::string_view) { return false; });
}

CrawlCounts ScanCrawler::counts() const
{
    return {m_pages, m_list.count(), m_queue};
}

} // namespace kestro
