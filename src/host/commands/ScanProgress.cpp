#include "host/commands/ScanProgress.h"

#include "platform/base/Log.h"

#include <QString>

#include <algorithm>
#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

namespace kestro {

namespace {

constexpr int usualColumns = 80;

int terminalColumns()
{
    winsize size{};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : usualColumns;
}

void writeOut(const std::string& text)
{
    std::fputs(text.c_str(), stderr);
    std::fflush(stderr);
}

// Back to the start of the line, and nothing after it.
const std::string eraseLine = "\r\x1b[K";

} // namespace

std::string progressLine(const CrawlCounts& counts, const std::string& url, int columns)
{
    const std::string line = std::to_string(counts.pages) + " pages, " + std::to_string(counts.records) +
                             " records, " + std::to_string(counts.queue) + " links to follow: " + url;
    return line.substr(0, static_cast<std::size_t>(std::max(columns, 0)));
}

ScanProgress::ScanProgress(bool isVerbose)
    : m_isVerbose(isVerbose)
    , m_isDrawn(!isVerbose && isatty(STDERR_FILENO) == 1)
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

// One column is left free: a full line would make some terminals begin the next one.
void ScanProgress::draw()
{
    if (!m_isDrawn) return;
    const std::lock_guard guard(m_mutex);
    writeOut(eraseLine + progressLine(m_counts, m_url, terminalColumns() - 1));
}

void ScanProgress::erase() const
{
    if (m_isDrawn) writeOut(eraseLine);
}

void ScanProgress::writeAbove(const QString& line) const
{
    writeOut(eraseLine + line.toStdString() + '\n');
}

} // namespace kestro
