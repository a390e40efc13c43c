#pragma once

#include <QString>

namespace kestro {

/// How a crawl ended, and what a person should know who expected more of it. A plain value.
struct ScanEnd {
    enum class Kind {
        Whole,     ///< the start page was scanned to its end
        Bounded,   ///< the same, but for what a bound kept it from
        Stopped,   ///< by stopThreading()
        NoPage,    ///< the start page could not be read
        NoAddress, ///< there is none to begin with: no page was asked for
        Taken,     ///< another one runs: likewise
    };
    Kind kind = Kind::NoAddress;
    QString reason; ///< in one line, where not everything was scanned and nobody stopped it
    int pages = 0;

    int refused = 0;           ///< pages that are read as ASCII, and hold other characters
    bool isAllVisited = false; ///< the start page leads to pages that were visited before, and to no other
    QString otherHost; ///< that the site is said to be on, where the start page is on `host`; or empty
    QString host;
    QString lockFault; ///< why a second crawl is not kept away, in one line; empty where it is

    /// Whether any page was asked for.
    [[nodiscard]] bool isStarted() const { return kind != Kind::NoAddress && kind != Kind::Taken; }
};

} // namespace kestro
