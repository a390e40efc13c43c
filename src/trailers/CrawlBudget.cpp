#include "trailers/CrawlBudget.h"

#include "platform/base/Clock.h"

namespace kestro {

CrawlBudget::CrawlBudget(CrawlLimits limits, const Clock& clock)
    : m_limits(limits)
    , m_clock(clock)
{
}

void CrawlBudget::begin()
{
    m_begun = m_clock.now();
    m_pages = 0;
    m_bytes = 0;
    m_held = 0;
    m_isOver = false;
    m_bound.clear();
}

bool CrawlBudget::hold(qint64 bytes)
{
    m_held += bytes;
    return !endIf(m_held > m_limits.memory,
                  QStringLiteral("%1 bytes of memory for open pages").arg(m_limits.memory));
}

void CrawlBudget::listIsFull()
{
    endIf(true, QStringLiteral("the list of trailers is full; clearing it makes room"));
}

bool CrawlBudget::goesOn()
{
    return !m_isOver && !endIf(m_pages >= m_limits.pages, QStringLiteral("%1 pages").arg(m_limits.pages)) &&
           !endIf(m_bytes >= m_limits.bytes, QStringLiteral("%1 bytes").arg(m_limits.bytes)) &&
           !endIf(m_clock.now() - m_begun >= m_limits.seconds,
                  QStringLiteral("%1 seconds").arg(m_limits.seconds));
}

bool CrawlBudget::reaches(qsizetype depth)
{
    if (depth <= m_limits.depth) return true;
    note(QStringLiteral("%1 links down").arg(m_limits.depth));
    return false;
}

bool CrawlBudget::endIf(bool isReached, const QString& bound)
{
    if (!isReached) return false;
    m_isOver = true;
    note(bound);
    return true;
}

void CrawlBudget::note(const QString& bound)
{
    if (m_bound.isEmpty()) m_bound = bound;
}

} // namespace kestro
