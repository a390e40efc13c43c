#include "host/publish/PublishProgress.h"

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

// Back to the start of the line, and nothing after it.
constexpr const char* eraseLine = "\r\x1b[K";

QString step(const QString& doing, const QString& name, std::size_t number, std::size_t count)
{
    return QStringLiteral("%1 %2 of %3: %4")
        .arg(doing, QString::number(number), QString::number(count), name);
}

} // namespace

PublishProgress::PublishProgress()
    : m_isDrawn(isatty(STDERR_FILENO) == 1)
{
}

void PublishProgress::reading(const QString& name, std::size_t number, std::size_t count)
{
    draw(step(QStringLiteral("Reading"), name, number, count));
}

void PublishProgress::writing(const QString& name, std::size_t number, std::size_t count)
{
    draw(step(QStringLiteral("Writing"), name, number, count));
}

void PublishProgress::erase() const
{
    draw({});
}

// One column is left free: a full line would make some terminals begin the next one.
void PublishProgress::draw(const QString& line) const
{
    if (!m_isDrawn) return;
    const QString shown = line.simplified().left(std::max(terminalColumns() - 1, 0));
    std::fputs((eraseLine + shown.toStdString()).c_str(), stderr);
    std::fflush(stderr);
}

} // namespace kestro
