#pragma once

#include "trailers/CrawlWatcher.h"

#include <mutex>
#include <string>

namespace kestro {

/// What the crawl of `kestro scan` shows while it runs: a line that changes on a terminal, or a line for each
/// page. Owned by the command. Made and drawn on the main thread, told on the crawl's.
class ScanProgress final : public CrawlWatcher {
public:
    /// With `isVerbose` each page is a line of the log.
    explicit ScanProgress(bool isVerbose);

    void pageBegins(const std::string& url, const CrawlCounts& counts) override;
    void pageEnds(const std::string& url, const QString& outcome) override;

    /// Whether there is a terminal to draw a changing line on.
    [[nodiscard]] bool isDrawn() const { return m_isDrawn; }
    /// Draws the line as it is now.
    void draw();
    /// Takes the line away, before something else is written.
    void erase() const;
    /// Writes a line of the log in its place; it comes back at the next drawing. Any thread.
    void writeAbove(const QString& line) const;

private:
    bool m_isVerbose;
    bool m_isDrawn;
    std::mutex m_mutex; ///< guards what follows
    std::string m_url;
    CrawlCounts m_counts;
};

/// The line of a crawl, cut to `columns` characters.
[[nodiscard]] std::string progressLine(const CrawlCounts& counts, const std::string& url, int columns);

} // namespace kestro
