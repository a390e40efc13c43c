#include "trailers/PageParser.h"

#include "platform/base/Log.h"
#include "trailers/CallArguments.h"
#include "trailers/LinkResolver.h"
#include "trailers/MovieCall.h"
#include "trailers/PageBase.h"
#include "trailers/TextSearch.h"

#include <algorithm>

namespace kestro {

namespace {

using Links = PageParser::Links;

constexpr TextSearch hrefAttribute("href=\"");
constexpr TextSearch feedName(".json");
constexpr TextSearch location(R"("location":")");
constexpr TextSearch objectCall("qt_writeobject_xhtml(");
constexpr TextSearch packageCall("ac.quicktime.packagemovie(");

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
        if (m_isFull) logLine(QStringLiteral("Too much on one page....%1").arg(shortBase()));
        m_left -= std::min(bytes, m_left);
        return !m_isFull;
    }

private:
    [[nodiscard]] QString shortBase() const
    {
        const auto text = m_base.absoluteString().substr(0, 1000);
        return QString::fromLatin1(text.data(), qsizetype(text.size()));
    }

    const PageBase& m_base;
    std::size_t m_left = PageParser::mostBytes;
    bool m_isFull = false;
};

/// Calls `visit` with each text that stands between `opening` and the next `closing`, until it answers false.
template <typename Visit>
void forEachBetween(std::string_view text, const TextSearch& opening, char closing, const Visit& visit)
{
    std::size_t at = opening.find(text);
    while (at != TextSearch::npos) {
        const std::size_t begin = at + opening.size();
        const std::size_t end = text.find(closing, begin);
        // Where nothing closes this one, nothing closes a later one either.
        if (end == std::string_view::npos || !visit(text.substr(begin, end - begin))) return;
        at = opening.find(text, end + 1);
    }
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

/// Calls `visit` with each name of a feed that follows a single quote.
template <typename Visit>
void forEachFeed(std::string_view page, const Visit& visit)
{
    std::size_t stretch = 0;
    std::size_t at = feedName.find(page);
    while (at != TextSearch::npos) {
        const std::size_t end = at + feedName.size();
        const std::size_t quote = page.substr(stretch, at - stretch).rfind('\'');
        if (quote != std::string_view::npos)
            visit(page.substr(stretch + quote + 1, end - stretch - quote - 1));
        stretch = end;
        at = feedName.find(page, end);
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
    Gathering(Links& links, const PageBase& base)
        : m_links(links)
        , m_base(base)
        , m_room(base)
    {
        for (const std::string& link : links)
            m_room.take(sizeOf(link));
    }

    /// Takes `link` unless it leads nowhere. Answers false once there is no room for more.
    bool add(std::string_view link)
    {
        auto url = mergeURLStringToURL(link, m_base);
        if (!url) return true;
        if (!m_room.take(sizeOf(*url))) return false;
        m_links.push_back(std::move(*url));
        return true;
    }

private:
    static std::size_t sizeOf(const std::string& link) { return link.size() + sizeof(std::string); }

    Links& m_links;
    const PageBase& m_base;
    Room m_room;
};

PageParser::PageParser(ReadFeed readFeed, QString today)
    : m_readFeed(std::move(readFeed))
    , m_today(std::move(today))
{
}

Links PageParser::linkListFromStringBase(std::string_view page, const PageBase& base) const
{
    Links links;
    Gathering gathering(links, base);
    forEachBetween(page, hrefAttribute, '"', [&](std::string_view link) { return gathering.add(link); });
    forEachFeed(page, [&](std::string_view reference) {
        const auto feed = mergeURLStringToURL(reference, base);
        if (feed && isOnHost(*feed, base)) addFeed(gathering, feedURL(*feed));
    });
    return links;
}

void PageParser::putLinksToFromJSONBase(Links& links, const QUrl& feed, const PageBase& base) const
{
    Gathering gathering(links, base);
    addFeed(gathering, feed);
}

void PageParser::addFeed(Gathering& gathering, const QUrl& feed) const
{
    if (!feed.isValid()) return;
    const QByteArray text = m_readFeed(feed);
    forEachBetween({text.data(), std::size_t(text.size())}, location, '"',
                   [&](std::string_view link) { return gathering.add(link); });
}

std::vector<TrailerRecord> PageParser::movieListFromStringBase(std::string_view page,
                                                               const PageBase& base) const
{
    std::vector<TrailerRecord> records;
    Room room(base);
    const auto add = [&](std::optional<TrailerRecord> record) {
        if (!record) return true;
        if (!room.take(sizeOf(*record))) return false;
        record->date = m_today;
        records.push_back(std::move(*record));
        return true;
    };
    forEachBetween(page, objectCall, ')',
                   [&](std::string_view text) { return add(movieOfObjectCall(text, base)); });
    forEachBetween(page, packageCall, ')',
                   [&](std::string_view text) { return add(movieOfPackageCall(text, base)); });
    return records;
}

} // namespace kestro
