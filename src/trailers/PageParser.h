#pragma once

#include "trailers/TrailerRecord.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kestro {

class PageBase;

/// Takes the links and the movies out of one fetched page, by plain searches for what names them. Pages are
/// bytes, one a character; URLs are absolute strings. A call or link that does not end is skipped. What one
/// page gives is bounded (see Bounds), far above what any page for people holds; more is left out, with a log
/// line. Owned by who reads pages; one thread, on which it reads the feeds that a page names.
class PageParser final {
public:
    /// The text at a feed's URL; empty when it cannot be read.
    using ReadFeed = std::function<QByteArray(const QUrl& feed)>;
    using Links = std::vector<std::string>;
    /// Whether reading is to go on. What is answered after it was not is of no use.
    using IsWanted = std::function<bool()>;

    /// `today` is the date of the records, as "2008/03/14". `isWanted` is asked before each feed, and every
    /// few milliseconds where a page is so large that it takes as long.
    PageParser(ReadFeed readFeed, QString today, IsWanted isWanted);

    /// The pages that `page` links to, in its order, doubles kept: its "href" attributes, then what the JSON
    /// feeds that it names hold. A feed is read once, however often the page names it; its links come each
    /// time.
    [[nodiscard]] Links linkListFromStringBase(std::string_view page, const PageBase& base) const;
    /// Appends the locations that the feed at `feed` holds, resolved against `base`, to `links`; nothing for
    /// a feed that cannot be read.
    void putLinksToFromJSONBase(Links& links, const QUrl& feed, const PageBase& base) const;
    /// The movies that `page` embeds: those of object calls in page order, then those of package calls.
    [[nodiscard]] std::vector<TrailerRecord> movieListFromStringBase(std::string_view page,
                                                                     const PageBase& base) const;

private:
    class Gathering;
    class NamedFeeds;

    bool addFeed(Gathering& gathering, const QUrl& feed) const;

    ReadFeed m_readFeed;
    QString m_today;
    IsWanted m_isWanted;
};

} // namespace kestro
