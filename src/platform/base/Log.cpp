#include "platform/base/Log.h"

#include <algorithm>
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
};

// Never destroyed: threads may log until the process is gone.
Output& output()
{
    static Output& only = *new Output;
    return only;
}

// What is logged holds names from files and pages; none of them may look like a line of its own.
QByteArray oneLine(QString line)
{
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, QChar(u' '));
    return line.toUtf8() + '\n';
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
    const std::lock_guard guard(output().mutex);
    if (output().sink)
        output().sink(line);
    else
        writeToStandardError(oneLine(line));
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
