#include "host/start/ProgressLine.h"

#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

namespace kestro {

namespace {

constexpr int usualColumns = 80;

} // namespace

bool hasProgressLine()
{
    return isatty(STDERR_FILENO) == 1;
}

// One column is left free: a full line would make some terminals begin the next one.
int progressColumns()
{
    winsize size{};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return (isKnown ? size.ws_col : usualColumns) - 1;
}

void drawProgress(const std::string& line)
{
    // Back to the start of the line, and nothing after it.
    std::fputs(("\r\x1b[K" + line).c_str(), stderr);
    std::fflush(stderr);
}

void eraseProgress()
{
    drawProgress({});
}

} // namespace kestro
