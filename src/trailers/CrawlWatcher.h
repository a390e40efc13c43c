#pragma once

#include <QString>

#include <string>

namespace kestro {

/// How far a crawl is.
struct CrawlCounts {
    int pages = 0;         ///< that were read
    qsizetype records = 0; ///< in the list
    qsizetype queue = 0;   ///< links that are still to be looked at
};

/// Is told what a crawl does. Owned by who wants to know; called on the crawl's thread, which waits
/// meanwhile.
class CrawlWatcher {
public:
    virtual ~CrawlWatcher() = default;

    /// `url` is about to be fetched.
    virtual void pageBegins(const std::string& url, const CrawlCounts& counts) = 0;
    /// What was found on it, or why it could not be read.
    virtual void pageEnds(const std::string& url, const QString& outcome) = 0;
};

} // namespace kestro
