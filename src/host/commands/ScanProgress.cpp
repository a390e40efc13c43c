#include "host/commands/ScanProgress.h"

#include "host/start/ProgressLine.h"
#include "platform/base/Log.h"

#include <QString>

#include <algorithm>

namespace kestro {

std::string progressLine(const CrawlCounts& counts, const std::string& url, int columns)
{
    const std::string line = std::to_string(counts.pages) + " pages, " + std::to_string(counts.records) +
                             " records, " + std::to_string(counts.queue) + " links to follow: " + url;
    return line.substr(0, static_cast<std::size_t>(std::max(columns, 0)));
}

ScanProgress::ScanProgress(bool isVerbose)
    : m_isVerbose(isVerbose)
    , m_isDrawn(!isVerbose && hasProgressLine())
{
}

void ScanProgress::pageBegins(const std::string& url, const CrawlCounts& counts)
{
    const std::lock_guard guard(m_mutex);
    m_url = url;
    m_counts = counts;
}

void ScanProgress::pageEnds(const std::string& url, const QString& outcome)
{
    if (m_isVerbose) logLine(QString::fromStdString(url) + QStringLiteral(": ") + outcome);
}

void ScanProgress::draw()
{
    if (!m_isDrawn) return;
    const std::lock_guard guard(m_mutex);
    drawProgress(progressLine(m_counts, m_url, progressColumns()));
}

void ScanProgress::erase() const
{
    if (m_isDrawn) eraseProgress();
}

void ScanProgress::writeAbove(const QString& line) const
{
    drawProgress(line.toStdString() + '\n');
}

} // namespace kestro
