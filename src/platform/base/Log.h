#pragma once

#include <QString>

#include <functional>

namespace kestro {

/// Writes one plain line to standard error, or to the sink that is set. Any thread. No URL in it shows what
/// lets others in (withoutSecrets()), and nothing in it looks like the end of a line or turns the direction
/// of the text; what is longer than Bounds::logLineCharacters is cut. The same line is written once a minute
/// at most, with how often it came (RepeatedLines).
void logLine(const QString& line);

/// Sends the lines of its life time to a function of ours instead of standard error, and gives back the sink
/// before it at its end. It gets every line, those too that come again and again. Used by tests that read
/// what was logged. Made and destroyed on the main thread.
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
