#include "trailers/PageParser.h"

#include "platform/base/Bounds.h"
#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"
#include "trailers/CallArguments.h"
#include "trailers/LinkResolver.h"
#include "trailers/MovieCall.h"
#include "trailers/PageBase.h"
#include "trailers/TextSearch.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

namespace kestro {

namespace {

using Links = PageParser::Links;

constexpr TextSearch hrefAttribute("href=\"");
constexpr TextSearch feedName(".json");
constexpr TextSearch location(R"("location":")");
constexpr TextSearch objectCall("qt_writeobject_xhtml(");
constexpr TextSearch packageCall("ac.quicktime.packagemovie(");

QString shown(const PageBase& base)
{
    const auto text = base.absoluteString();
    return shownURL(QUrl::fromEncoded(QByteArray(text.data(), qsizetype(text.size()))));
}

/// Asks now and then whether to go on. Pages for people are done before it asks for the first time.
class Pace final {
public:
    static constexpr std::size_t stretch = std::size_t(1024) * 1024; ///< bytes from one look to the next

    explicit Pace(const PageParser::IsWanted& isWanted)
        : m_isWanted(isWanted)
    {
    }

    /// Answers false, and from then on, when it is to end. `bytes` were gone through since the last time.
    bool goesOn(std::size_t bytes)
    {
        m_gone += bytes + bytesOfAFind;
        return m_gone < stretch || goesOnNow();
    }
    bool goesOnNow()
    {
        m_gone = 0;
        m_isOver = m_isOver || !m_isWanted();
        return !m_isOver;
    }
    [[nodiscard]] bool isOver() const { return m_isOver; }

private:
    static constexpr std::size_t bytesOfAFind = 256; ///< that searching could go through meanwhile

    const PageParser::IsWanted& m_isWanted;
    std::size_t m_gone = 0;
    bool m_isOver = false;
};

/// What is left of the memory for what one page gives. A page of millions of short links below a long base
/// would take memory without end.
class Room final {
public:
    explicit Room(const PageBase& base)
        : m_base(base)
    {
    }

    /// Answers false, and from then on, when `bytes` are too many.
    bool take(std::size_t bytes)
    {
        if (m_isFull) return false;
        m_isFull = bytes > m_left;
        if (m_isFull) logLine(QStringLiteral("Too much on one page....%1").arg(shown(m_base)));
        m_left -= std::min(bytes, m_left);
        return !m_isFull;
    }

private:
    const PageBase& m_base;
    std::size_t m_left = Bounds::pageMemory;
    bool m_isFull = false;
};

/// Where `needle` next begins in `text`; npos where it does not, and when it is to end.
std::size_t findAtPace(const TextSearch& needle, std::string_view text, std::size_t from, Pace& pace)
{
    for (;; from += Pace::stretch) {
        const std::size_t end = std::min(from + Pace::stretch + needle.size() - 1, text.size());
        const std::size_t found = needle.find(text.substr(0, end), from);
        if (found != TextSearch::npos || end == text.size()) return found;
        if (!pace.goesOn(Pace::stretch)) return TextSearch::npos;
    }
}

/// Calls `visit` with each text that stands between `opening` and the next `closing`, until it answers false
/// or reading is to end; answers false then.
template <typename Visit>
bool forEachBetween(std::string_view text, const TextSearch& opening, char closing, Pace& pace,
                    const Visit& visit)
{
    std::size_t at = findAtPace(opening, text, 0, pace);
    while (at != TextSearch::npos) {
        const std::size_t begin = at + opening.size();
        const std::size_t end = text.find(closing, begin);
        // Where nothing closes this one, nothing closes a later one either.
        if (end == std::string_view::npos) return true;
        if (!pace.goesOn(end - begin) || !visit(text.substr(begin, end - begin))) return false;
        at = findAtPace(opening, text, end + 1, pace);
    }
    return !pace.isOver();
}

QUrl feedURL(const std::string& text)
{
    return QUrl::fromEncoded(QByteArray::fromRawData(text.data(), qsizetype(text.size())), QUrl::StrictMode);
}

/// Whether `url` is on the base's host. Steps up past the root eat into the host of what a link is merged
/// into.
bool isOnHost(const std::string& url, const PageBase& base)
{
    const auto parts = URLText::parse(url);
    return parts && parts->hostAndPort() == base.parts().hostAndPort();
}

/// Calls `visit` with each name of a feed that follows a single quote, until it answers false.
template <typename Visit>
void forEachFeed(std::string_view page, Pace& pace, const Visit& visit)
{
    std::size_t stretch = 0;
    std::size_t at = findAtPace(feedName, page, 0, pace);
    while (at != TextSearch::npos && pace.goesOn(at - stretch)) {
        const std::size_t end = at + feedName.size();
        const std::size_t quote = page.substr(stretch, at - stretch).rfind('\'');
        const bool isNamed = quote != std::string_view::npos;
        if (isNamed && !visit(page.substr(stretch + quote + 1, end - stretch - quote - 1))) return;
        stretch = end;
        at = findAtPace(feedName, page, end, pace);
    }
}

std::size_t sizeOf(const TrailerRecord& record)
{
    const qsizetype characters = record.url.size() + record.size.value_or(QString()).size();
    return sizeof record + std::size_t(characters) * sizeof(QChar);
}

} // namespace

/// The links of one page while they are gathered.
class PageParser::Gathering final {
public:
    Gathering(Links& links, const PageBase& base, const IsWanted& isWanted)
        : m_links(links)
        , m_base(base)
        , m_room(base)
        , m_pace(isWanted)
    {
        for (const std::string& link : links)
            m_room.take(sizeOf(link));
    }

    /// Takes `link` unless it leads nowhere. Answers false once there is no room for more.
    bool add(std::string_view link)
    {
        auto url = mergeURLStringToURL(link, m_base);
        return !url || keep(std::move(*url));
    }
    /// Takes the links from the `first` to before the `last` once more; answers as add() does.
    bool addAgain(std::size_t first, std::size_t last)
    {
        for (std::size_t i = first; i < last; ++i)
            if (!keep(std::string(m_links[i]))) return false;
        return true;
    }
    [[nodiscard]] std::size_t count() const { return m_links.size(); }
    [[nodiscard]] const PageBase& base() const { return m_base; }
    [[nodiscard]] Pace& pace() { return m_pace; }

private:
    static std::size_t sizeOf(const std::string& link) { return link.size() + sizeof(std::string); }

    bool keep(std::string url)
    {
        if (!m_room.take(sizeOf(url))) return false;
        m_links.push_back(std::move(url));
        return true;
    }

    Links& m_links;
    const PageBase& m_base;
    Room m_room;
    Pace m_pace;
};

/// The feeds that one page names, each with the stretch of its links. A page can name one feed two thousand
/// times, or as many feeds as it likes.
class PageParser::NamedFeeds final {
public:
    NamedFeeds(const PageParser& parser, Gathering& gathering)
        : m_parser(parser)
        , m_gathering(gathering)
    {
    }

    /// Adds the links of the feed that the page calls `reference`; answers false when it is to end.
    bool add(std::string_view reference)
    {
        auto feed = mergeURLStringToURL(reference, m_gathering.base());
        if (!feed || !isOnHost(*feed, m_gathering.base())) return true;
        if (const auto known = m_links.find(*feed); known != m_links.end())
            return m_gathering.addAgain(known->second.first, known->second.last);
        return isTooMany() || read(std::move(*feed));
    }

private:
    struct Stretch {
        std::size_t first;
        std::size_t last;
    };

    bool read(std::string feed)
    {
        if (!m_gathering.pace().goesOnNow()) return false;
        const std::size_t first = m_gathering.count();
        const bool goesOn = m_parser.addFeed(m_gathering, feedURL(feed));
        m_links.emplace(std::move(feed), Stretch{first, m_gathering.count()});
        return goesOn;
    }

    bool isTooMany()
    {
        if (m_links.size() < Bounds::feedsOfAPage) return false;
        if (!std::exchange(m_hasComplained, true))
            logLine(QStringLiteral("More than %1 feeds on one page....%2")
                        .arg(Bounds::feedsOfAPage)
                        .arg(shown(m_gathering.base())));
        return true;
    }

    const PageParser& m_parser;
    Gathering& m_gathering;
    std::map<std::string, Stretch> m_links;
    bool m_hasComplained = false;
};

PageParser::PageParser(ReadFeed readFeed, QString today, IsWanted isWanted)
    : m_readFeed(std::move(readFeed))
    , m_today(std::move(today))
    , m_isWanted(std::move(isWanted))
{
}

Links PageParser::linkListFromStringBase(std::string_view page, const PageBase& base) const
{
    Links links;
    Gathering gathering(links, base, m_isWanted);
    const auto add = [&](std::string_view link) { return gathering.add(link); };
    if (!forEachBetween(page, hrefAttribute, '"', gathering.pace(), add)) return links;
    NamedFeeds feeds(*this, gathering);
    forEachFeed(page, gathering.pace(), [&](std::string_view reference) { return feeds.add(reference); });
    return links;
}

void PageParser::putLinksToFromJSONBase(Links& links, const QUrl& feed, const PageBase& base) const
{
    Gathering gathering(links, base, m_isWanted);
    addFeed(gathering, feed);
}

bool PageParser::addFeed(Gathering& gathering, const QUrl& feed) const
{
    if (!feed.isValid()) return true;
    const QByteArray text = m_readFeed(feed);
    return forEachBetween({text.data(), std::size_t(text.size())}, location, '"', gathering.pace(),
                          [&](std::string_view link) { return gathering.add(link); });
}

std::vector<TrailerRecord> PageParser::movieListFromStringBase(std::string_view page,
                                                               const PageBase& base) const
{
    std::vector<TrailerRecord> records;
    Room room(base);
    Pace pace(m_isWanted);
    const auto add = [&](std::optional<TrailerRecord> record) {
        if (!record) return true;
        if (!room.take(sizeOf(*record))) return false;
        record->date = m_today;
        records.push_back(std::move(*record));
        return true;
    };
    const auto isCall = [](std::string_view text) { return qint64(text.size()) <= Bounds::callBytes; };
    const auto addObject = [&](std::string_view text) {
        return !isCall(text) || add(movieOfObjectCall(text, base));
    };
    const auto addPackage = [&](std::string_view text) {
        return !isCall(text) || add(movieOfPackageCall(text, base));
    };
    if (forEachBetween(page, objectCall, ')', pace, addObject))
        forEachBetween(page, packageCall, ')', pace, addPackage);
    return records;
}

} // namespace kestro
