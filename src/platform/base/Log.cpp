#include "platform/base/Log.h"

#include "platform/base/Bounds.h"
#include "platform/base/Clock.h"
#include "platform/base/OneLine.h"
#include "platform/base/RepeatedLines.h"
#include "platform/base/ShownURL.h"

#include <cerrno>
#include <mutex>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

struct Output {
    // Recursive: a sink may log. Held while the sink runs, so that no line reaches a sink that has been given
    // back.
    std::recursive_mutex mutex;
    LogCapture::Sink sink;
    RepeatedLines repeated; // of what goes to standard error
};

// Never destroyed: threads may log until the process is gone.
Output& output()
{
    static Output& only = *new Output;
    return only;
}

// At a blank, so that no URL is cut: half a one may no longer look like what it is.
QString cut(const QString& line)
{
    constexpr qsizetype most = Bounds::logLineCharacters;
    if (line.size() <= most) return line;
    const qsizetype blank = line.lastIndexOf(u' ', most - 1);
    return line.first(blank > 0 ? blank : most - 1) + QChar(u'…');
}

// What is logged holds names from files and pages; none of them may look like a line of its own.
QString plain(const QString& line)
{
    return onOneLine(withoutSecrets(cut(line)));
}

void writeToStandardError(const QByteArray& bytes)
{
    const char* next = bytes.constData();
    qsizetype left = bytes.size();
    while (left > 0) {
        const ssize_t written = ::write(STDERR_FILENO, next, static_cast<size_t>(left));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;
        next += written;
        left -= written;
    }
}

} // namespace

void logLine(const QString& line)
{
    const QString shown = plain(line);
    const std::lock_guard guard(output().mutex);
    if (output().sink)
        output().sink(shown);
    else
        for (const QString& written : output().repeated.take(shown, SystemClock().now()))
            writeToStandardError(written.toUtf8() + '\n');
}

LogCapture::LogCapture(Sink sink)
{
    const std::lock_guard guard(output().mutex);
    m_previous = std::exchange(output().sink, std::move(sink));
}

LogCapture::~LogCapture()
{
    const std::lock_guard guard(output().mutex);
    output().sink = std::move(m_previous);
}

} // namespace kestro
