#pragma once

#include <QProcess>
#include <QUrl>

namespace kestro {

/// A server of the test movies on loopback, good and bad ways: see the script `movie-server`. Ends with its
/// owner. Main thread.
class MovieServer final {
public:
    /// Whether it serves.
    [[nodiscard]] bool start();
    void stop();
    ~MovieServer() { stop(); }

    [[nodiscard]] QUrl addressOf(const char* path) const;

private:
    QProcess m_process;
    int m_port = 0;
};

} // namespace kestro
