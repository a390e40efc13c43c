#pragma once

#include "platform/base/Bounds.h"

#include <QString>

namespace kestro {

class Clock;

/// What one crawl may cost.
struct CrawlLimits {
    int pages = Bounds::crawlPages;
    int depth = Bounds::crawlDepth;
    qint64 bytes = Bounds::crawlBytes;
    double seconds = Bounds::crawlSeconds;
    qint64 memory = Bounds::crawlMemory;
};

/// What a crawl has cost, and the first bound that it came to. Owned by the crawler; on the crawl's thread.
/// Tested by CrawlBoundsTest.
class CrawlBudget final {
public:
    /// `clock` outlives the budget.
    CrawlBudget(CrawlLimits limits, const Clock& clock);

    /// Begins anew.
    void begin();
    /// One more page is asked for.
    void addPage() { ++m_pages; }
    /// As many bytes as have come in all, unpacked ones too.
    void setBytes(qint64 bytes) { m_bytes = bytes; }
    /// Counts what is kept in memory; answers false where that is too much.
    bool hold(qint64 bytes);
    void release(qint64 bytes) { m_held -= bytes; }
    /// Whether there is memory for what is of little use: half of it is for the rest.
    [[nodiscard]] bool hasMemoryToSpare() const { return m_held < m_limits.memory / 2; }
    /// The list takes no more.
    void listIsFull();

    /// Whether the crawl may ask for another page; once it may not, it stays so.
    [[nodiscard]] bool goesOn();
    /// Whether a page that many links below the first one may be asked for; others may be where not.
    [[nodiscard]] bool reaches(qsizetype depth);

    /// The bound that kept the crawl from something, in words; empty for none.
    [[nodiscard]] const QString& bound() const { return m_bound; }

    [[nodiscard]] const Clock& clock() const { return m_clock; }

private:
    bool endIf(bool isReached, const QString& bound);
    void note(const QString& bound);

    CrawlLimits m_limits;
    const Clock& m_clock;
    double m_begun = 0;
    int m_pages = 0;
    qint64 m_bytes = 0;
    qint64 m_held = 0;
    bool m_isOver = false;
    QString m_bound;
};

} // namespace kestro
