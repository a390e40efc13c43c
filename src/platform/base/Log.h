#pragma once

#include <QString>

#include <functional>

namespace kestro {

/// Writes one plain line to standard error, or to the sink that is set. Any thread.
void logLine(const QString& line);

/// Sends the lines of its life time to a function of ours instead of standard error, and gives back the sink
/// before it at its end. Used by tests that read what was logged. Made and destroyed on the main thread.
class LogCapture final {
public:
    using Sink = std::function<void(const QString&)>;

    explicit LogCapture(Sink sink);
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

private:
    Sink m_previous;
};

} // namespace kestro
